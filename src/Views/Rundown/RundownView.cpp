#include "RundownView.h"

#include "CommandActions.h"
#include "CommandButton.h"
#include "Copying.h"
#include "DropTarget.h"
#include "Panels.h"
#include "RoleLabel.h"
#include "RundownList.h"
#include "SectionButtons.h"
#include "TransferredData.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quenara {

namespace {

constexpr int headerHeight = 44;
constexpr int footerHeight = 40;
constexpr int leftMargin = 12;
constexpr int rightMargin = 8;
constexpr int footerMargin = 10;
constexpr int iconSpacing = 2;

QWidget *makeHeader(const CommandActions &commands)
{
    using Look = SymbolButton::Look;
    QWidget *header = makePanel(QStringLiteral("rundownHeader"), headerHeight);
    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins(leftMargin, 0, rightMargin, 0);
    layout->setSpacing(iconSpacing);
    layout->addWidget(makeRoleLabel(QStringLiteral("panelTitle"), QStringLiteral("Rundown")));
    layout->addStretch(1);
    for (const Command command : {Command::addSection, Command::pasteSongLyrics, Command::addSlide,
                                  Command::duplicateSlide, Command::deleteSlide}) {
        layout->addWidget(new CommandButton(
            *commands.action(command), command == Command::addSlide ? Look::labelled : Look::icon));
    }
    return header;
}

QWidget *makeFooter(const CommandActions &commands)
{
    QWidget *footer = makePanel(QStringLiteral("rundownFooter"), footerHeight);
    auto *layout = new QHBoxLayout(footer);
    layout->setContentsMargins(footerMargin, 0, footerMargin, 0);
    layout->setSpacing(iconSpacing);
    const auto add = [&](Command command) {
        layout->addWidget(new CommandButton(*commands.action(command), SymbolButton::Look::icon));
    };
    add(Command::moveSlideUp);
    add(Command::moveSlideDown);
    layout->addStretch(1);
    add(Command::deleteSection);
    return footer;
}

} // namespace

RundownView::RundownView(WorkspaceStore &store, const CommandActions &commands,
                         RenderCaches &caches, QWidget *parent)
    : QWidget(parent)
{
    setFixedWidth(panelWidth);
    takeSongs(*this);
    new DropTarget(
        *this,
        {.accepts = [](const QMimeData &dragged) { return textFileIn(dragged).has_value(); },
         .take =
             [&store](const QMimeData &dragged, const QPointF & /*point*/) {
                 // After the drop is over, for which the other program waits.
                 QMetaObject::invokeMethod(
                     &store, [&store, file = textFileIn(dragged)] { store.offerSongFile(*file); },
                     Qt::QueuedConnection);
             }});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader(commands));
    auto *list = new RundownList(store, commands, caches);
    list->setMinimumHeight(1); // on the smallest screens, it is the buttons that need the room
    layout->addWidget(list, 1);
    layout->addWidget(makeFooter(commands));
    new SectionButtons(store, commands, *list, this);
}

} // namespace quenara
