#include "AlertBox.h"

#include <QApplication>

namespace quenara {

namespace {

constexpr int iconSize = 48;

} // namespace

AlertBox::AlertBox(const QString &text, const QString &detail, StandardButtons buttons,
                   QWidget *parent)
    : QMessageBox(NoIcon, QStringLiteral("Quenara"), text, buttons, parent)
{
    setInformativeText(detail);
    setIconPixmap(QApplication::windowIcon().pixmap(iconSize));
    setWindowModality(Qt::WindowModal);
}

} // namespace quenara
