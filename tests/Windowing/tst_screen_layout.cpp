#include "ScreenLayout.h"

#include <QTest>

using namespace quenara;

class TestScreenLayout : public QObject
{
    Q_OBJECT

private slots:
    void theDisplayCoversTheSecondScreenElseTheMainOneElseItsOwnFrame()
    {
        const QRect first(0, 0, 1366, 768);
        const QRect second(1366, 0, 1920, 1080);
        const QRect third(-1024, 0, 1024, 768);
        QCOMPARE(displayFrame({first, second}, first), second);
        QCOMPARE(displayFrame({first, second, third}, second), second);
        QCOMPARE(displayFrame({first}, first), first);
        QCOMPARE(displayFrame({}, first), first);
        QCOMPARE(displayFrame({}, std::nullopt), QRect(120, 120, 1280, 720));
    }
};

QTEST_APPLESS_MAIN(TestScreenLayout)
#include "tst_screen_layout.moc"
