#include "WindowMemory.h"

#include "FileReading.h"
#include "FileReplacement.h"
#include "OperatorWindow.h"
#include "StateFolder.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QUrl>

namespace quenara {

namespace {

constexpr qint64 largestPlace = 4096; // bytes

/// The screen of that name, else the primary one; null without screens.
QScreen *screenNamed(const QString &name)
{
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen->name() == name)
            return screen;
    }
    return QGuiApplication::primaryScreen();
}

QMargins frameOf(const QWidget &window)
{
    const QRect outer = window.frameGeometry();
    const QRect inner = window.geometry();
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

} // namespace

WindowMemory::WindowMemory(OperatorWindow &window, const QString &file)
    : m_window(window), m_file(file)
{
    restore();
    m_window.installEventFilter(this);
}

QString WindowMemory::standardFile()
{
    return stateFolder() + QStringLiteral("/operator-window.json");
}

void WindowMemory::restore()
{
    const std::optional<QByteArray> stored = wholeFile(QUrl::fromLocalFile(m_file), largestPlace);
    const std::optional<WindowPlace> place = decodeWindowPlace(stored.value_or(QByteArray()));
    QScreen *screen = place ? screenNamed(place->screen) : nullptr;
    if (!screen)
        return;
    const QPoint origin = screen->geometry().topLeft();
    WindowPlace fitting = broughtWithin(m_window.roomOn(*screen).translated(-origin), *place);
    fitting.screen = screen->name();
    m_window.setScreen(screen);
    m_window.followScreen();
    m_window.resize(fitting.size);
    m_window.move(origin + fitting.corner);
    if (fitting.isMaximized)
        m_window.setWindowState(Qt::WindowMaximized);
    m_restored = fitting;
    m_untouched = m_window.geometry();
}

/// The window must have a screen.
WindowPlace WindowMemory::place() const
{
    const bool isMaximized = m_window.isMaximized();
    const QRect normal = isMaximized ? m_window.normalGeometry() : m_window.geometry();
    const QMargins frame = frameOf(m_window);
    // A window that has been maximized ever since it was opened has not got another frame yet.
    const bool isFramed = !isMaximized || normal != m_untouched;
    const QPoint corner =
        normal.topLeft() - (isFramed ? QPoint(frame.left(), frame.top()) : QPoint());
    return {.screen = m_window.screen()->name(),
            .corner = corner - m_window.screen()->geometry().topLeft(),
            .size = m_window.sizeWithRoom().value_or(normal.size()),
            .frame = frame,
            .isMaximized = isMaximized && !m_window.sizeWithRoom()};
}

void WindowMemory::store() const
{
    if (!m_window.screen())
        return;
    const WindowPlace now = place();
    if (now.size.isEmpty() || (m_restored && isBeside(*m_restored, now)))
        return;
    QDir().mkpath(QFileInfo(m_file).path());
    // Where it cannot be written, the window opens as if for the first time.
    [[maybe_unused]] const bool isStored = replaceFile(m_file, encode(now));
}

bool WindowMemory::eventFilter(QObject * /*object*/, QEvent *event)
{
    if (event->type() == QEvent::Hide && !event->spontaneous())
        store();
    return false;
}

} // namespace quenara
