#include "EscapeTwice.h"

#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>

#include <utility>

namespace quenara {

namespace {

constexpr quint64 escapeTwiceWithin = 1000; // milliseconds

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
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        if (key.key() == Qt::Key_Escape) {
            m_askedAt = key.timestamp();
        } else {
            m_first.reset();
        }
    }
    return QObject::eventFilter(watched, event);
}

void EscapeTwice::press()
{
    const auto first = std::exchange(m_first, m_askedAt);
    if (first && m_askedAt - *first <= escapeTwiceWithin) {
        m_first.reset();
        emit pressed();
    }
}

} // namespace quenara
