#include "AlertBox.h"

#include "PlainToolTip.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>

namespace quenara {

namespace {

constexpr int iconSize = 48;

} // namespace

AlertBox::AlertBox(const QString &text, const QString &detail, StandardButtons buttons,
                   QWidget *parent)
    : QMessageBox(NoIcon, QStringLiteral("Quenara"), text, buttons, parent)
{
    setInformativeText(detail);
    // The texts may contain names from documents, which must not be read as markup.
    for (QLabel *label : findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
    setIconPixmap(QApplication::windowIcon().pixmap(iconSize));
    setWindowModality(Qt::WindowModal);
}

void AlertBox::showEvent(QShowEvent *event)
{
    QMessageBox::showEvent(event);
    for (QAbstractButton *button : QMessageBox::buttons()) {
        const bool isByEscape = button == escapeButton();
        button->setToolTip(
            buttonToolTip(button->text().remove(QLatin1Char('&')),
                          isByEscape ? QKeySequence(Qt::Key_Escape) : QKeySequence()));
    }
}

} // namespace quenara
