#include "TransportView.h"

#include "CommandActions.h"
#include "CommandButton.h"
#include "OutputWindows.h"
#include "Panels.h"
#include "TransportPreview.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>

namespace quenara {

namespace {

constexpr int padding = 10;
constexpr int groupSpacing = 12;
constexpr int buttonSpacing = 6;
constexpr int navigationSpacing = 10;

/// What keeps the audience from seeing the live slide.
PreviewNotice::Reason noticeOf(OutputMode mode, const OutputWindows &outputs)
{
    using Reason = PreviewNotice::Reason;
    if (!outputs.isDisplayWindowOpen())
        return outputs.isDisplayWaiting() ? Reason::waitingDisplay : Reason::noDisplay;
    switch (mode) {
    case OutputMode::live:
        return Reason::none;
    case OutputMode::blackout:
        return Reason::blackout;
    case OutputMode::logo:
        return Reason::logo;
    }
    Q_UNREACHABLE();
}

} // namespace

TransportView::TransportView(WorkspaceStore &store, const CommandActions &commands,
                             RenderCaches &caches, QWidget *parent)
    : QWidget(parent), m_store(store), m_commands(commands),
      m_queued(new TransportPreview(QStringLiteral("Queued"), &ZelvoTheme::accent, caches)),
      m_live(new TransportPreview(QStringLiteral("Live"), &ZelvoTheme::live, caches))
{
    using Look = SymbolButton::Look;
    setPanelName(*this, QStringLiteral("transportBar"));
    setFixedHeight(barHeight);
    auto *layout = new QHBoxLayout(this);
    // No margins above and below: the highest part takes the room that it needs.
    layout->setContentsMargins(padding, 0, padding, 0);
    layout->setSpacing(groupSpacing);
    layout->addWidget(m_queued);
    layout->addWidget(m_live);
    layout->addStretch(1);

    const auto addGroup = [&](int between, std::initializer_list<Command> members) {
        auto *group = new QHBoxLayout;
        group->setSpacing(between);
        for (const Command command : members) {
            auto *button =
                new CommandButton(*commands.action(command),
                                  command == Command::goLive ? Look::prominent : Look::tile);
            group->addWidget(button);
            if (descriptionOf(command).isOn)
                m_switches.append({button, command});
        }
        layout->addLayout(group);
    };
    addGroup(navigationSpacing, {Command::previousLive, Command::goLive, Command::nextLive});
    layout->addStretch(1);
    addGroup(buttonSpacing, {Command::queuePrevious, Command::queueNext});
    addGroup(buttonSpacing, {Command::toggleBlackout, Command::toggleLogo});
    addGroup(buttonSpacing, {Command::toggleDisplayWindow, Command::toggleStageWindow});
    for (const Switch &one : m_switches) {
        one.button->setCheckable(true);
        // A click checks the button even if the command then changes nothing.
        connect(one.button, &SymbolButton::clicked, this, &TransportView::showSwitches);
        if (one.command == Command::toggleBlackout)
            one.button->setObjectName(QStringLiteral("blackoutButton"));
    }

    connect(&store, &WorkspaceStore::changed, this, &TransportView::showSlides);
    connect(&commands, &CommandActions::switched, this, &TransportView::showSwitches);
    connect(&commands, &CommandActions::switched, this, &TransportView::showNotice);
    showSlides();
    showSwitches();
    showNotice();
}

int TransportView::widthBesidePreviews() const
{
    int width = layout()->minimumSize().width();
    for (const TransportPreview *preview : {m_queued, m_live}) {
        if (!preview->isHidden())
            width -= preview->width() + groupSpacing;
    }
    return width;
}

QSize TransportView::minimumSizeHint() const
{
    return {widthBesidePreviews() + TransportPreview::leastWidth + groupSpacing, barHeight};
}

void TransportView::resizeEvent(QResizeEvent *event)
{
    constexpr int both = 2 * (TransportPreview::fullWidth + groupSpacing);
    const int room = width() - widthBesidePreviews();
    m_queued->setVisible(room >= both);
    m_live->fitInto(room - groupSpacing);
    layout()->activate();
    QWidget::resizeEvent(event);
}

void TransportView::showSlides()
{
    m_queued->setSlide(m_store.slideWithID(m_store.queuedSlideID()));
    m_live->setSlide(m_store.slideWithID(m_store.liveSlideID()));
}

void TransportView::showSwitches()
{
    for (const Switch &one : m_switches)
        one.button->setChecked(m_commands.isOn(one.command));
}

void TransportView::showNotice()
{
    m_live->setNotice(noticeOf(m_store.outputMode(), m_commands.outputs()));
}

} // namespace quenara
