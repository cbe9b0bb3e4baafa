#include "TransportView.h"

#include "CommandActions.h"
#include "CommandButton.h"
#include "OutputWindows.h"
#include "Panels.h"
#include "TransportPreview.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

constexpr int padding = 10;
constexpr int groupSpacing = 12;
constexpr int buttonSpacing = 6;
constexpr int navigationSpacing = 10;
constexpr int stackedSpacing = 6; ///< between all groups and buttons where room is scarce

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
      m_live(new TransportPreview(QStringLiteral("Live"), &ZelvoTheme::live, caches)),
      m_navigation(new QHBoxLayout)
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

    const auto addButton = [&](QBoxLayout &group, Command command) {
        auto *button = new CommandButton(*commands.action(command),
                                         command == Command::goLive ? Look::prominent : Look::tile);
        group.addWidget(button);
        if (descriptionOf(command).isOn)
            m_switches.append({button, command});
        return button;
    };
    m_navigation->setSpacing(navigationSpacing);
    for (const Command command : {Command::previousLive, Command::goLive, Command::nextLive})
        addButton(*m_navigation, command);
    layout->addLayout(m_navigation);
    layout->addStretch(1);
    const auto addPair = [&](Command first, Command second) {
        auto *pair = new QHBoxLayout;
        pair->setSpacing(buttonSpacing);
        m_pairs.append({pair, addButton(*pair, first), addButton(*pair, second)});
        layout->addLayout(pair);
    };
    addPair(Command::queuePrevious, Command::queueNext);
    addPair(Command::toggleBlackout, Command::toggleLogo);
    addPair(Command::toggleDisplayWindow, Command::toggleStageWindow);
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
            width -= preview->width() + layout()->spacing();
    }
    return width;
}

int TransportView::widthSavedByStacking() const
{
    int width = int(m_pairs.size()) * (groupSpacing - stackedSpacing)
        + (m_navigation->count() - 1) * (navigationSpacing - stackedSpacing);
    for (const Pair &pair : m_pairs) {
        width += buttonSpacing
            + std::min(pair.first->minimumSizeHint().width(),
                       pair.second->minimumSizeHint().width());
    }
    return width;
}

void TransportView::stackPairs(bool isStacked)
{
    if (isStacked == m_isStacked)
        return;
    m_isStacked = isStacked;
    layout()->setSpacing(isStacked ? stackedSpacing : groupSpacing);
    m_navigation->setSpacing(isStacked ? stackedSpacing : navigationSpacing);
    for (const Pair &pair : std::as_const(m_pairs))
        pair.layout->setDirection(isStacked ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

QSize TransportView::minimumSizeHint() const
{
    const int buttons = widthBesidePreviews() - (m_isStacked ? 0 : widthSavedByStacking());
    return {buttons + TransportPreview::leastWidth + stackedSpacing, barHeight};
}

void TransportView::resizeEvent(QResizeEvent *event)
{
    const int inARow = widthBesidePreviews() + (m_isStacked ? widthSavedByStacking() : 0);
    stackPairs(width() < inARow + TransportPreview::leastWidth + groupSpacing);
    const int gap = layout()->spacing();
    const int room = width() - widthBesidePreviews();
    m_queued->setVisible(room >= 2 * (TransportPreview::fullWidth + gap));
    m_live->fitInto(room - gap);
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
