#include "ScreenWatch.h"

#include "XServer.h"

#include <QGuiApplication>
#include <QHash>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

#if QT_CONFIG(xcb)
#include <xcb/randr.h>
#endif

namespace quenara {

namespace {

/// The screens' frames in the server's pixels, by the names that Qt gives the screens.
using Monitors = QHash<QString, QRect>;

#if QT_CONFIG(xcb)

/// The answers of the server are allocated by C.
struct Free
{
    void operator()(void *answer) const { std::free(answer); }
};
template<typename Answer>
using Owned = std::unique_ptr<Answer, Free>;

QString nameOf(xcb_connection_t *server, xcb_atom_t atom)
{
    const Owned<xcb_get_atom_name_reply_t> answer(
        xcb_get_atom_name_reply(server, xcb_get_atom_name(server, atom), nullptr));
    return answer ? QString::fromUtf8(xcb_get_atom_name_name(answer.get()),
                                      xcb_get_atom_name_name_length(answer.get()))
                  : QString();
}

/// Empty without a server and for one too old to answer.
Monitors monitorsOf(xcb_connection_t *server)
{
    Monitors monitors;
    if (!server || !xcb_get_extension_data(server, &xcb_randr_id)->present)
        return monitors;
    for (auto root = xcb_setup_roots_iterator(xcb_get_setup(server)); root.rem;
         xcb_screen_next(&root)) {
        const Owned<xcb_randr_get_monitors_reply_t> answer(xcb_randr_get_monitors_reply(
            server, xcb_randr_get_monitors(server, root.data->root, true), nullptr));
        if (!answer)
            continue;
        for (auto monitor = xcb_randr_get_monitors_monitors_iterator(answer.get()); monitor.rem;
             xcb_randr_monitor_info_next(&monitor)) {
            const xcb_randr_monitor_info_t &info = *monitor.data;
            monitors.insert(nameOf(server, info.name),
                            QRect(info.x, info.y, info.width, info.height));
        }
    }
    return monitors;
}

/// Whether the server shows its windows on a Wayland desktop. Newer ones say so themselves; of
/// others the names of screens or the session tell.
bool isGuestOfWayland(xcb_connection_t *server)
{
    constexpr std::string_view extension = "XWAYLAND";
    const Owned<xcb_query_extension_reply_t> answer(xcb_query_extension_reply(
        server, xcb_query_extension(server, extension.size(), extension.data()), nullptr));
    const QStringList names = monitorsOf(server).keys();
    return (answer && answer->present) || !names.filter(QLatin1String("XWAYLAND")).isEmpty()
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

bool isAboutScreens(xcb_connection_t *server, const void *message)
{
    constexpr int sentByClient = 0x80;
    const auto &event = *static_cast<const xcb_generic_event_t *>(message);
    const xcb_query_extension_reply_t &randr = *xcb_get_extension_data(server, &xcb_randr_id);
    const int type = (event.response_type & ~sentByClient) - randr.first_event;
    return randr.present && (type == XCB_RANDR_SCREEN_CHANGE_NOTIFY || type == XCB_RANDR_NOTIFY);
}

#else

Monitors monitorsOf(xcb_connection_t * /*server*/)
{
    return {};
}

bool isGuestOfWayland(xcb_connection_t * /*server*/)
{
    return false;
}

bool isAboutScreens(xcb_connection_t * /*server*/, const void * /*message*/)
{
    return false;
}

#endif

} // namespace

QRect PlacedScreen::room() const
{
    // Qt may not know yet that the screen has become smaller.
    const QRect available = screen->availableGeometry() & frame;
    return available.isEmpty() ? frame : available;
}

QList<QRect> framesOf(const QList<PlacedScreen> &screens)
{
    QList<QRect> frames;
    for (const PlacedScreen &screen : screens)
        frames.append(screen.frame);
    return frames;
}

ScreenWatch::ScreenWatch(QObject *parent)
    : QObject(parent), m_server(xServer()),
      m_areWindowsPlaced(!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))),
      m_canGoUnmanaged(m_server && !isGuestOfWayland(m_server))
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    std::for_each(screens.cbegin(), screens.cend(), [this](QScreen *screen) { follow(screen); });
    connect(qApp, &QGuiApplication::screenAdded, this, [this](const QScreen *screen) {
        follow(screen);
        emit changed();
    });
    connect(qApp, &QGuiApplication::screenRemoved, this, &ScreenWatch::changed);
    if (m_server)
        qApp->installNativeEventFilter(this);
    if (!m_areWindowsPlaced) {
        m_mutter.emplace(QDBusConnection::sessionBus());
        connect(&*m_mutter, &MutterLayout::changed, this, &ScreenWatch::changed);
    }
}

QList<PlacedScreen> ScreenWatch::screens() const
{
    const Monitors monitors = monitorsOf(m_server);
    const QList<QScreen *> screens = QGuiApplication::screens();
    QList<PlacedScreen> placed;
    for (QScreen *screen : screens) {
        const auto monitor = monitors.constFind(screen->name());
        if (monitor != monitors.cend()) {
            const QSize size = monitor->size() / screen->devicePixelRatio();
            placed.append({screen, QRect(monitor->topLeft(), size)});
        } else if (monitors.isEmpty()) {
            QRect frame = screen->geometry();
            if (m_mutter && m_mutter->isInPixels())
                frame.setSize(frame.size() / screen->devicePixelRatio());
            placed.append({screen, frame});
        }
    }
    return placed;
}

std::optional<qsizetype> ScreenWatch::indexUnder(const QWidget &window) const
{
    const QList<PlacedScreen> all = screens();
    const QPoint center = window.frameGeometry().center();
    const auto found = std::find_if(all.cbegin(), all.cend(), [&](const PlacedScreen &placed) {
        return m_areWindowsPlaced ? placed.frame.contains(center)
                                  : placed.screen == window.screen();
    });
    return found == all.cend() ? std::nullopt : std::optional(found - all.cbegin());
}

QRect ScreenWatch::roomOn(const QScreen &screen) const
{
    const QList<PlacedScreen> all = screens();
    const auto found = std::find_if(all.cbegin(), all.cend(), [&screen](const auto &placed) {
        return placed.screen == &screen;
    });
    return found == all.cend() ? screen.availableGeometry() : found->room();
}

bool ScreenWatch::nativeEventFilter(const QByteArray & /*type*/, void *message,
                                    qintptr * /*result*/)
{
    if (isAboutScreens(m_server, message))
        tellSoon();
    return false;
}

void ScreenWatch::follow(const QScreen *screen) const
{
    connect(screen, &QScreen::geometryChanged, this, &ScreenWatch::changed);
}

/// Emits changed() once for a burst of events, after Qt has handled them.
void ScreenWatch::tellSoon()
{
    if (std::exchange(m_isTelling, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isTelling = false;
            emit changed();
        },
        Qt::QueuedConnection);
}

} // namespace quenara
