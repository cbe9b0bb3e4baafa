#include "MutterLayout.h"
#include "SessionBus.h"
#include "TestMain.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QMutex>
#include <QMutexLocker>
#include <QSignalSpy>
#include <QTest>
#include <QVariantMap>

#include <optional>

using namespace quenara;
using namespace quenara::test;

namespace tst_mutter_layout {

constexpr unsigned logical = 1;
constexpr unsigned physical = 2;
const auto service = QStringLiteral("org.gnome.Mutter.DisplayConfig");
const auto path = QStringLiteral("/org/gnome/Mutter/DisplayConfig");

/// Tells of the properties alone, in the place that they have.
class DisplayConfig : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.gnome.Mutter.DisplayConfig")

public:
    explicit DisplayConfig(std::optional<unsigned> layout) : m_layout(layout) {}

    void change(unsigned layout)
    {
        const QMutexLocker lock(&m_mutex);
        m_layout = layout;
        // The connection has the service's name.
        QDBusConnection(service).send(
            QDBusMessage::createSignal(path, service, QStringLiteral("MonitorsChanged")));
    }

public slots:
    // NOLINTNEXTLINE(readability-identifier-naming): D-Bus calls it so
    unsigned GetCurrentState(QVariantList & /*monitors*/, QVariantList & /*screens*/,
                             QVariantMap &properties)
    {
        const QMutexLocker lock(&m_mutex);
        properties = {{QStringLiteral("supports-mirroring"), true}};
        if (m_layout)
            properties.insert(QStringLiteral("layout-mode"), *m_layout);
        return 1;
    }

private:
    QMutex m_mutex;
    std::optional<unsigned> m_layout;
};

void offer(SessionBus &bus, DisplayConfig &compositor)
{
    bus.offer(service, path, compositor);
}

class TestMutterLayout : public QObject
{
    Q_OBJECT

private slots:
    void theCompositorSaysWhatItCountsIn_data()
    {
        QTest::addColumn<std::optional<unsigned>>("told");
        QTest::addColumn<bool>("inPixels");
        QTest::newRow("points") << std::optional(logical) << false;
        QTest::newRow("pixels") << std::optional(physical) << true;
        QTest::newRow("an older one, which counts in points") << std::optional<unsigned>() << false;
    }

    void theCompositorSaysWhatItCountsIn()
    {
        QFETCH(const std::optional<unsigned>, told);
        DisplayConfig compositor(told);
        SessionBus bus;
        offer(bus, compositor);
        const MutterLayout layout(bus.connection(QStringLiteral("program")));
        QFETCH(const bool, inPixels);
        QTRY_COMPARE(layout.isInPixels(), inPixels);
    }

    void changesOfTheScreensAreToldOfWithTheirLayout()
    {
        DisplayConfig compositor(physical);
        SessionBus bus;
        offer(bus, compositor);
        const MutterLayout layout(bus.connection(QStringLiteral("program")));
        QTRY_VERIFY(layout.isInPixels());
        QSignalSpy changed(&layout, &MutterLayout::changed);
        compositor.change(physical);
        QTRY_VERIFY(!changed.isEmpty());
        QVERIFY(layout.isInPixels());
        changed.clear();
        compositor.change(logical);
        QTRY_VERIFY(!layout.isInPixels());
        QTRY_VERIFY(!changed.isEmpty());
    }

    void anotherDesktopCountsInPoints()
    {
        SessionBus bus;
        const MutterLayout onABus(bus.connection(QStringLiteral("program")));
        const MutterLayout onNone(QDBusConnection(QStringLiteral("none")));
        for (const MutterLayout *layout : {&onABus, &onNone})
            QVERIFY(!layout->isInPixels());
    }
};

QUENARA_TEST(TestMutterLayout)

} // namespace tst_mutter_layout

#include "tst_mutter_layout.moc"
