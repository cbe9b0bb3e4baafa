#include "XServer.h"

#include <QGuiApplication>

#if QT_CONFIG(xcb)
#include <xcb/screensaver.h>
#endif

namespace quenara {

#if QT_CONFIG(xcb)

xcb_connection_t *xServer()
{
    const auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    const auto *x11 = app ? app->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

void keepXScreensOn(bool on)
{
    xcb_connection_t *server = xServer();
    if (!server || !xcb_get_extension_data(server, &xcb_screensaver_id)->present)
        return;
    xcb_screensaver_suspend(server, on);
    xcb_flush(server);
}

#else

xcb_connection_t *xServer()
{
    return nullptr;
}

void keepXScreensOn(bool /*on*/) {}

#endif

} // namespace quenara
