#include "ExportWindow.h"

#include "BringToFront.h"
#include "ExportView.h"
#include "ZelvoCommands.h"

#include <QVBoxLayout>

namespace quenara {

ExportWindow::ExportWindow(const WorkspaceStore &store, FilePanelRunner &panels,
                           const ZelvoCommands &menus, QWidget *operatorWindow)
    : QDialog(operatorWindow), m_content(new ExportView(store, panels))
{
    setObjectName(QStringLiteral("exportWindow"));
    setWindowTitle(QStringLiteral("Export"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_content);
    m_content->setFocus(); // Space would press a choice that has the keyboard.
    menus.addTo(*this);
    connect(m_content, &ExportView::dismissed, this, &QDialog::reject);
    connect(this, &QDialog::finished, m_content, &ExportView::cancel);
}

void ExportWindow::present()
{
    if (!isVisible())
        m_content->beginAnew();
    show();
    bringToFront(*this);
}

} // namespace quenara
