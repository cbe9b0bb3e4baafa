#include "ScreenChoice.h"
#include "TestMain.h"

#include <QTest>

using namespace quenara;

namespace tst_screen_choice {

class TestScreenChoice : public QObject
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

    void anOpenDisplayKeepsItsScreenElseFindsAnotherThatIsNotTheOperators_data()
    {
        using Screens = QList<QRect>;
        using Index = std::optional<qsizetype>;
        QTest::addColumn<Screens>("screens");
        QTest::addColumn<Index>("current");
        QTest::addColumn<Index>("next");
        const QRect operators(0, 0, 1366, 768);
        const QRect beside(1366, 0, 1920, 1080);
        const QRect left(-1024, 0, 1024, 768);
        const Index none;
        const auto row = [](const char *name, const Screens &screens, const Index &current,
                            const Index &next) {
            QTest::newRow(name) << screens << current << next;
        };
        row("its screen stays", {operators, beside}, 1, 1);
        row("its screen stays, whatever comes", {operators, left, beside}, 2, 2);
        row("its screen goes and another is left", {operators, left}, none, 1);
        row("its screen goes and none is left", {operators}, none, none);
        row("its screen becomes a mirror of the operator's", {operators, operators}, 1, none);
        row("its screen becomes a larger mirror", {operators, {0, 0, 1920, 1080}}, 1, none);
        row("a mirror beside which there is another", {operators, operators, beside}, 1, 2);
        row("its screen has no size", {operators, {}}, 1, none);
        row("opened on the operator's screen it stays", {operators, beside}, 0, 0);
        row("its screen becomes the primary one", {beside}, 0, 0);
    }

    void anOpenDisplayKeepsItsScreenElseFindsAnotherThatIsNotTheOperators()
    {
        QFETCH(QList<QRect>, screens);
        QFETCH(std::optional<qsizetype>, current);
        QFETCH(std::optional<qsizetype>, next);
        QCOMPARE(screenToFollow(screens, current, screens.first()), next);
    }

    void aScreenThatShowsWhatThePrimaryOneShowsIsNotFree()
    {
        const QRect operators(0, 0, 1366, 768);
        const QRect beside(1366, 0, 1920, 1080);
        const std::optional<qsizetype> none;
        QCOMPARE(freeScreen({operators, operators}, operators), none);
        QCOMPARE(freeScreen({operators}, operators), none);
        QCOMPARE(freeScreen({}, {}), none);
        QCOMPARE(freeScreen({operators, operators, beside}, operators),
                 std::optional<qsizetype>(2));
    }

    void theScreenWithTheOperatorsWindowIsNotFree()
    {
        const QRect primary(0, 0, 1366, 768);
        const QRect second(1366, 0, 1920, 1080);
        const QRect third(3286, 0, 1920, 1080);
        const std::optional<qsizetype> none;
        QCOMPARE(freeScreen({primary, second}, second), none);
        QCOMPARE(freeScreen({primary, second, third}, second), std::optional<qsizetype>(2));
        QCOMPARE(screenToFollow({primary, third}, none, third), none);
        // A display that is there already stays: whoever moved the window there sees it.
        QCOMPARE(screenToFollow({primary, second}, 1, second), std::optional<qsizetype>(1));
    }
};

QUENARA_TEST(TestScreenChoice)

} // namespace tst_screen_choice

#include "tst_screen_choice.moc"
