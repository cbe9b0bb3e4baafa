#include "RundownView.h"

#include "Panels.h"
#include "RoleLabel.h"
#include "RundownList.h"
#include "SymbolButton.h"
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
constexpr int spacing = 2;

} // namespace

RundownView::RundownView(WorkspaceStore &store, PictureCache &pictures, QWidget *parent)
    : QWidget(parent), m_store(store)
{
    setFixedWidth(panelWidth);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader());
    layout->addWidget(new RundownList(store, pictures), 1);
    layout->addWidget(makeFooter());
}

QWidget *RundownView::makeHeader()
{
    using Look = SymbolButton::Look;
    QWidget *header = makePanel(QStringLiteral("rundownHeader"), headerHeight);
    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins(leftMargin, 0, rightMargin, 0);
    layout->setSpacing(spacing);
    layout->addWidget(makeRoleLabel(QStringLiteral("panelTitle"), QStringLiteral("Rundown")));
    layout->addStretch(1);
    const auto add = [&](const QString &symbol, const QString &title, Look look, auto action) {
        auto *button = new SymbolButton(symbol, title, look);
        connect(button, &SymbolButton::clicked, &m_store, action);
        layout->addWidget(button);
    };
    add(QStringLiteral("folder.badge.plus"), QStringLiteral("Add section"), Look::icon,
        [this] { m_store.addServiceItem(ServiceItemType::custom); });
    add(QStringLiteral("music.note.list"), QStringLiteral("Paste song lyrics"), Look::icon,
        [this] { m_store.setSongImportPresented(true); });
    add({}, QStringLiteral("Slide"), Look::labelled, [this] { m_store.addSlide(); });
    add(QStringLiteral("plus.square.on.square"), QStringLiteral("Duplicate selected slide"),
        Look::icon, [this] { m_store.duplicateSelectedSlide(); });
    add(QStringLiteral("trash"), QStringLiteral("Delete selected slide"), Look::icon,
        [this] { m_store.deleteSelectedSlide(); });
    return header;
}

QWidget *RundownView::makeFooter()
{
    QWidget *footer = makePanel(QStringLiteral("rundownFooter"), footerHeight);
    auto *layout = new QHBoxLayout(footer);
    layout->setContentsMargins(footerMargin, 0, footerMargin, 0);
    layout->setSpacing(spacing);
    const auto add = [&](const QString &symbol, const QString &title, auto action) {
        auto *button = new SymbolButton(symbol, title, SymbolButton::Look::icon);
        connect(button, &SymbolButton::clicked, &m_store, action);
        layout->addWidget(button);
    };
    add(QStringLiteral("arrow.up"), QStringLiteral("Move slide up"),
        [this] { m_store.moveSelectedSlide(-1); });
    add(QStringLiteral("arrow.down"), QStringLiteral("Move slide down"),
        [this] { m_store.moveSelectedSlide(+1); });
    layout->addStretch(1);
    add(QStringLiteral("folder.badge.minus"), QStringLiteral("Delete selected section"),
        [this] { m_store.deleteSelectedServiceItem(); });
    return footer;
}

} // namespace quenara
