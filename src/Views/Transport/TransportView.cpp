#include "TransportView.h"

#include "OutputSwitches.h"
#include "Panels.h"
#include "SymbolButton.h"
#include "TransportPreview.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>

namespace quenara {

namespace {

constexpr int padding = 10;
constexpr int groupSpacing = 12;
constexpr int buttonSpacing = 6;
constexpr int navigationSpacing = 10;

} // namespace

TransportView::TransportView(WorkspaceStore &store, OutputSwitches &outputs, PictureCache &pictures,
                             QWidget *parent)
    : QWidget(parent), m_store(store), m_outputs(outputs),
      m_queued(new TransportPreview(QStringLiteral("Queued"), &ZelvoTheme::accent, pictures)),
      m_live(new TransportPreview(QStringLiteral("Live"), &ZelvoTheme::live, pictures))
{
    using Look = SymbolButton::Look;
    setPanelName(*this, QStringLiteral("transportBar"));
    setFixedHeight(barHeight);
    auto *layout = new QHBoxLayout(this);
    // Above and below, what is highest takes the room it needs.
    layout->setContentsMargins(padding, 0, padding, 0);
    layout->setSpacing(groupSpacing);
    layout->addWidget(m_queued);
    layout->addWidget(m_live);
    layout->addStretch(1);

    const auto addGroup = [layout](int spacing) {
        auto *group = new QHBoxLayout;
        group->setSpacing(spacing);
        layout->addLayout(group);
        return group;
    };
    const auto add = [this](QHBoxLayout *group, const QString &symbol, const QString &title,
                            auto &receiver, auto operation, Look look = Look::tile) {
        auto *button = new SymbolButton(symbol, title, look);
        connect(button, &SymbolButton::clicked, &receiver, operation);
        group->addWidget(button);
        return button;
    };
    const auto addSwitch = [&](auto &&...arguments) {
        SymbolButton *button = add(arguments...);
        button->setCheckable(true);
        // What the switch shows is not its own doing.
        connect(button, &SymbolButton::clicked, this, &TransportView::showState);
        return button;
    };

    QHBoxLayout *navigation = addGroup(navigationSpacing);
    add(navigation, QStringLiteral("backward.end.fill"), QStringLiteral("Previous"), m_store,
        &WorkspaceStore::previousLive);
    add(navigation, QStringLiteral("play.fill"), QStringLiteral("Go Live"), m_store,
        &WorkspaceStore::goLive, Look::prominent);
    add(navigation, QStringLiteral("forward.end.fill"), QStringLiteral("Next"), m_store,
        &WorkspaceStore::nextLive);
    layout->addStretch(1);
    QHBoxLayout *queue = addGroup(buttonSpacing);
    add(queue, QStringLiteral("arrow.up"), QStringLiteral("Queue Prev"), m_store,
        &WorkspaceStore::queuePrevious);
    add(queue, QStringLiteral("arrow.down"), QStringLiteral("Queue Next"), m_store,
        &WorkspaceStore::queueNext);
    QHBoxLayout *modes = addGroup(buttonSpacing);
    m_blackout = addSwitch(modes, QStringLiteral("circle.fill"), QStringLiteral("Blackout"),
                           m_store, &WorkspaceStore::toggleBlackout);
    m_blackout->setObjectName(QStringLiteral("blackoutButton"));
    m_logo = addSwitch(modes, QStringLiteral("sparkles"), QStringLiteral("Logo"), m_store,
                       &WorkspaceStore::toggleLogo);
    QHBoxLayout *windows = addGroup(buttonSpacing);
    m_display = addSwitch(windows, QStringLiteral("tv"), QStringLiteral("Display"), m_outputs,
                          &OutputSwitches::toggleDisplayWindow);
    m_stage = addSwitch(windows, QStringLiteral("rectangle.inset.filled.and.person.filled"),
                        QStringLiteral("Monitor"), m_outputs, &OutputSwitches::toggleStageWindow);

    connect(&store, &WorkspaceStore::changed, this, &TransportView::showState);
    connect(&outputs, &OutputSwitches::changed, this, &TransportView::showState);
    showState();
}

void TransportView::showState()
{
    m_queued->setSlide(m_store.slideWithID(m_store.queuedSlideID()));
    m_live->setSlide(m_store.slideWithID(m_store.liveSlideID()));
    m_blackout->setChecked(m_store.outputMode() == OutputMode::blackout);
    m_logo->setChecked(m_store.outputMode() == OutputMode::logo);
    m_display->setChecked(m_outputs.isDisplayWindowOpen());
    m_stage->setChecked(m_outputs.isStageWindowOpen());
}

} // namespace quenara
