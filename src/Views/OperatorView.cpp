#include "OperatorView.h"

#include "AccessibleControls.h"
#include "DesignCanvasView.h"
#include "InspectorView.h"
#include "Panels.h"
#include "ProjectBar.h"
#include "QtWorkarounds.h"
#include "RundownView.h"
#include "TransportView.h"
#include "Typing.h"
#include "WorkspaceStore.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quenara {

OperatorView::OperatorView(WorkspaceStore &store, const CommandActions &commands,
                           RenderCaches &caches, QWidget *parent)
    : QWidget(parent), m_projectBar(new ProjectBar(store, commands)),
      m_rundown(new RundownView(store, commands, caches))
{
    setAccessibleRole(*this, QAccessible::Pane);
    setAccessibleName(QStringLiteral("Operator"));
    setFocusPolicy(Qt::ClickFocus);
    auto *workArea = new QHBoxLayout;
    workArea->setSpacing(0);
    workArea->addWidget(m_rundown);
    workArea->addWidget(makeSeparator(Qt::Vertical));
    // Where room is scarce, the canvas gives way, and at last the inspector.
    workArea->addWidget(new DesignCanvasView(store, commands, caches), 1);
    workArea->addWidget(new InspectorView(store, caches));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_projectBar);
    layout->addLayout(workArea, 1);
    layout->addWidget(new TransportView(store, commands, caches));
    qApp->installEventFilter(this);
    // Connected last: after the parts above have shown the change.
    connect(&store, &WorkspaceStore::changed, this, layOutNow);
}

void OperatorView::showWhetherKept(bool isKept)
{
    m_projectBar->showWhetherKept(isKept);
}

int OperatorView::rundownWidth() const
{
    return m_rundown->width();
}

bool OperatorView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        const auto *pressed = qobject_cast<const QWidget *>(watched);
        QWidget *field = QApplication::focusWidget();
        if (pressed && takesText(field) && isAncestorOf(pressed) && isAncestorOf(field)
            && pressed != field && !field->isAncestorOf(pressed)) {
            leaveField(*field);
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace quenara
