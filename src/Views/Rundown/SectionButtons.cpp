#include "SectionButtons.h"

#include "CommandActions.h"
#include "CommandButton.h"
#include "RundownList.h"
#include "RundownModel.h"
#include "WorkspaceStore.h"

#include <QApplication>
#include <QCursor>
#include <QWheelEvent>

#include <algorithm>

namespace quenara {

namespace {

constexpr int margin = 8; // points
constexpr QSize iconSize{12, 12};

} // namespace

SectionButtons::SectionButtons(WorkspaceStore &store, const CommandActions &commands,
                               RundownList &list, QWidget *parent)
    : QWidget(parent), m_store(store), m_commands(commands), m_list(list)
{
    parent->installEventFilter(this);
    connect(&list, &RundownList::aboutToScroll, this, &SectionButtons::uncover);
    connect(&list, &RundownList::rowsPlaced, this, &SectionButtons::place);
    place();
}

SymbolButton *SectionButtons::makeButton(qsizetype position, Command command)
{
    const QAction *move = m_commands.action(command);
    auto *button =
        new SymbolButton(symbolOf(*move), move->iconText(), SymbolButton::Look::icon, this);
    button->setIconSize(iconSize);
    connect(button, &SymbolButton::clicked, this, [this, position, command] {
        const QString itemID = m_pairs.at(position).itemID; // the pair gets another one meanwhile
        moveSection(itemID, command);
    });
    return button;
}

/// Keeps the pointer, and the focus, on a button of the section that is moved, so that the next
/// press moves it again.
void SectionButtons::moveSection(const QString &itemID, Command command)
{
    const auto button = command == Command::moveSectionUp ? &Pair::up : &Pair::down;
    const auto own = [&]() -> SymbolButton * {
        const auto pair = std::find_if(m_pairs.cbegin(), m_pairs.cend(),
                                       [&](const Pair &one) { return one.itemID == itemID; });
        return pair == m_pairs.cend() ? nullptr : (*pair).*button;
    };
    const auto move = [&] {
        m_commands.selectAndPerform([&] { m_store.selectServiceItem(itemID); }, command);
    };
    const SymbolButton *pressed = own();
    const bool hadFocus = pressed && pressed->hasFocus();
    if (hadFocus) {
        move();
    } else {
        m_list.hold(itemID, move);
        // A reader presses the button wherever the pointer is.
        if (!parentWidget()->rect().contains(parentWidget()->mapFromGlobal(QCursor::pos())))
            m_list.endHold();
    }
    if (SymbolButton *now = own(); now && hadFocus)
        now->setFocus(Qt::OtherFocusReason);
}

SectionButtons::Pair &SectionButtons::pairAt(qsizetype position)
{
    if (position == m_pairs.size()) {
        SymbolButton *up = makeButton(position, Command::moveSectionUp);
        SymbolButton *down = makeButton(position, Command::moveSectionDown);
        setTabOrder(position == 0 ? static_cast<QWidget *>(&m_list) : m_pairs.constLast().down, up);
        setTabOrder(up, down);
        m_pairs.append({up, down, {}});
    }
    return m_pairs[position];
}

/// Hides the buttons: Qt moves the pixels of a list that scrolls only if nothing lies over them,
/// and else paints them again.
void SectionButtons::uncover()
{
    constexpr QRect nowhere(-1, -1, 1, 1);
    m_list.viewport()->update(mask());
    setMask(nowhere);
}

void SectionButtons::place()
{
    if (m_list.isDragging())
        return uncover(); // what is dragged is painted by the list
    const QWidget &viewport = *m_list.viewport();
    qsizetype used = 0;
    QRegion covered;
    for (const QModelIndex &index : m_list.rowsIn(viewport.rect())) {
        if (!index.data(RundownModel::isServiceItemRole).toBool())
            continue;
        const QRect row = m_list.visualRect(index);
        Pair &pair = pairAt(used++);
        pair.itemID = index.data(RundownModel::idRole).toString();
        int right = row.right() + 1 - margin;
        for (SymbolButton *button : {pair.down, pair.up}) {
            const QSize size = button->sizeHint();
            right -= size.width();
            button->setGeometry({{right, row.center().y() - size.height() / 2 + 1}, size});
            button->setAccessibleDescription(index.data(Qt::DisplayRole).toString());
            button->show();
            covered += button->geometry();
        }
    }
    for (qsizetype i = used; i < m_pairs.size(); ++i) {
        m_pairs[i].itemID.clear();
        m_pairs.at(i).up->hide();
        m_pairs.at(i).down->hide();
    }
    setGeometry({viewport.mapTo(parentWidget(), QPoint(0, 0)), viewport.size()});
    setMask(covered);
    setVisible(used > 0);
    raise();
}

/// Once the pointer has left the rundown, nothing that it may be about to press moves with the
/// rows.
bool SectionButtons::eventFilter(QObject * /*rundown*/, QEvent *event)
{
    if (event->type() == QEvent::Leave)
        m_list.endHold();
    return false;
}

void SectionButtons::wheelEvent(QWheelEvent *event)
{
    QApplication::sendEvent(m_list.viewport(), event);
}

} // namespace quenara
