#include "DeferredPreferences.h"
#include "GuiTestSupport.h"
#include "RecentProjectsStore.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QWidget>

using namespace quenara;
using namespace quenara::test;

namespace tst_deferred_preferences {

/// What is stored at the start is written after the first painting.
class TestDeferredPreferences : public GuiTest
{
    Q_OBJECT

private slots:
    void nothingIsWrittenBeforeTheWindowIsPainted();
    void aProjectThatTheProgramStartsWithIsNotEither();
    void whatChangesLaterIsWrittenAtOnce();

private:
    QTemporaryDir m_folder;
    QString path() const { return m_folder.filePath(QStringLiteral("preferences.ini")); }
    /// What another program would read.
    QVariant written() const
    {
        QSettings preferences(path() + QStringLiteral(".copy"), QSettings::IniFormat);
        QFile::remove(preferences.fileName());
        QFile::copy(path(), preferences.fileName());
        preferences.sync();
        return preferences.value(QStringLiteral("key"));
    }
};

void TestDeferredPreferences::nothingIsWrittenBeforeTheWindowIsPainted()
{
    QSettings preferences(path(), QSettings::IniFormat);
    QWidget window;
    const DeferredPreferences deferred(preferences, window);
    preferences.setValue(QStringLiteral("key"), 1);
    QCoreApplication::processEvents();
    QVERIFY(!QFile::exists(path()));

    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_COMPARE(written(), QVariant(QStringLiteral("1")));
}

void TestDeferredPreferences::aProjectThatTheProgramStartsWithIsNotEither()
{
    const QString file = m_folder.filePath(QStringLiteral("started.ini"));
    QSettings preferences(file, QSettings::IniFormat);
    QWidget window;
    const DeferredPreferences deferred(preferences, window);
    RecentProjectsStore::add(preferences, QUrl::fromLocalFile(QStringLiteral("/show.quenara")),
                             QStringLiteral("Show"), QDateTime::currentDateTimeUtc());
    QVERIFY(!QFile::exists(file));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_VERIFY(QFile::exists(file));
}

void TestDeferredPreferences::whatChangesLaterIsWrittenAtOnce()
{
    QSettings preferences(path(), QSettings::IniFormat);
    QWidget window;
    const DeferredPreferences deferred(preferences, window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    preferences.setValue(QStringLiteral("key"), 2);
    QTRY_COMPARE(written(), QVariant(QStringLiteral("2")));
}

QUENARA_GUI_TEST(TestDeferredPreferences)

} // namespace tst_deferred_preferences

#include "tst_deferred_preferences.moc"
