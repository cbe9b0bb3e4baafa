#include "RandomHand.h"

#include "EveryEdit.h"

namespace quenara::test {

void RandomHand::act(const std::function<void()> &inGesture)
{
    WorkspaceStore &store = m_world.store;
    switch (any(12)) {
    case 0:
    case 1:
        return select();
    case 2:
    case 3:
        return stepShow();
    case 4:
    case 5:
        return gesture(inGesture);
    case 6:
        return any(2) == 0 ? store.undo() : store.redo();
    case 7:
        if (store.currentFileURL() && any(3) == 0)
            store.saveProject();
        return;
    default:
        m_world.run(everyEdit().at(any(everyEdit().size())));
    }
}

void RandomHand::select()
{
    WorkspaceStore &store = m_world.store;
    const QStringList ids = slideIDs(store.project());
    if (ids.isEmpty())
        return;
    store.selectSlide(ids.at(any(ids.size())), any(2) == 0);
    const QList<SlideElement> layers = m_world.slide().design.elements;
    if (!layers.isEmpty())
        store.selectElement(layers.at(any(layers.size())).id);
}

void RandomHand::stepShow()
{
    using Step = void (WorkspaceStore::*)();
    constexpr auto steps = std::to_array<Step>(
        {&WorkspaceStore::goLive, &WorkspaceStore::nextLive, &WorkspaceStore::previousLive,
         &WorkspaceStore::queueNext, &WorkspaceStore::queuePrevious,
         &WorkspaceStore::toggleBlackout, &WorkspaceStore::toggleLogo});
    (m_world.store.*steps.at(std::size_t(any(steps.size()))))();
}

void RandomHand::gesture(const std::function<void()> &inGesture)
{
    WorkspaceStore &store = m_world.store;
    QList<NamedEdit> updates;
    for (const NamedEdit &edit : everyEdit()) {
        if (edit.joinsGesture)
            updates.append(edit);
    }
    const NamedEdit update = updates.at(any(updates.size()));
    const GestureID gesture = store.beginGesture();
    for (int left = any(6); left >= 0; --left) {
        update.run(store);
        inGesture();
    }
    any(4) == 0 ? store.cancelGesture(gesture) : store.endGesture(gesture);
}

} // namespace quenara::test
