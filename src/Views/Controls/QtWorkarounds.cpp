#include "QtWorkarounds.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>

namespace quenara {

void layOutNow()
{
    constexpr int depth = 8; // layouts within one another; what lies deeper is laid out later
    for (int i = 0; i < depth; ++i)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

void makeActive(QWidget &window)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QApplication::setActiveWindow(&window);
    QT_WARNING_POP
}

bool wantsInputMethod(const QWidget &widget)
{
    return widget.testAttribute(Qt::WA_InputMethodEnabled)
        && !qobject_cast<const QAbstractItemView *>(&widget);
}

} // namespace quenara
