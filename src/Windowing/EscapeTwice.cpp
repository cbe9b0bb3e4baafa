#include "EscapeTwice.h"

#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>

namespace quenara {

namespace {

constexpr qint64 escapeTwiceWithin = 1000; // milliseconds

} // namespace

EscapeTwice::EscapeTwice(QWidget &window) : QObject(&window)
{
    auto *escape = new QShortcut(Qt::Key_Escape, &window);
    escape->setAutoRepeat(false);
    connect(escape, &QShortcut::activated, this, &EscapeTwice::press);
    qApp->installEventFilter(this);
}

/// A key that is a shortcut arrives as the question whether it may be one, and not as a press.
bool EscapeTwice::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride
        && static_cast<const QKeyEvent *>(event)->key() != Qt::Key_Escape)
        m_sinceFirst.invalidate();
    return QObject::eventFilter(watched, event);
}

void EscapeTwice::press()
{
    const bool isSecond = m_sinceFirst.isValid() && !m_sinceFirst.hasExpired(escapeTwiceWithin);
    if (isSecond) {
        m_sinceFirst.invalidate();
        emit pressed();
    } else {
        m_sinceFirst.start();
    }
}

} // namespace quenara
