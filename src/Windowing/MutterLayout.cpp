#include "MutterLayout.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QVariantMap>

namespace quenara {

namespace {

const auto method = QStringLiteral("GetCurrentState");
constexpr int answerMilliseconds = 500;

/// The answer is a serial number, the monitors, the screens made of them, and properties.
bool tellsOfPixels(const QDBusMessage &answer)
{
    constexpr unsigned physical = 2; // 1 is logical
    constexpr qsizetype propertiesAt = 3;
    const auto properties = qdbus_cast<QVariantMap>(answer.arguments().value(propertiesAt));
    return properties.value(QStringLiteral("layout-mode")).toUInt() == physical;
}

} // namespace

MutterDisplayConfig::MutterDisplayConfig(const QDBusConnection &bus)
    : QDBusAbstractInterface(QStringLiteral("org.gnome.Mutter.DisplayConfig"),
                             QStringLiteral("/org/gnome/Mutter/DisplayConfig"),
                             "org.gnome.Mutter.DisplayConfig", bus, nullptr)
{}

MutterLayout::MutterLayout(const QDBusConnection &bus, QObject *parent)
    : QObject(parent), m_mutter(bus)
{
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(m_mutter.service()))
        return;
    connect(&m_mutter, &MutterDisplayConfig::MonitorsChanged, this, &MutterLayout::askAgain);
    m_mutter.setTimeout(answerMilliseconds);
    const QDBusMessage answer = m_mutter.call(method);
    m_mutter.setTimeout(-1);
    if (answer.type() == QDBusMessage::ReplyMessage) {
        m_isInPixels = tellsOfPixels(answer);
    } else {
        askAgain(); // one that is still starting answers later
    }
}

void MutterLayout::askAgain()
{
    auto *watcher = new QDBusPendingCallWatcher(m_mutter.asyncCall(method), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        if (!watcher->isError())
            m_isInPixels = tellsOfPixels(watcher->reply());
        emit changed();
    });
}

} // namespace quenara
