#include "TestMain.h"

#include <QProcess>
#include <QTest>

using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_test_main {

namespace {

/// A helper that cannot do what it is asked for.
int findNothing(const Caller &caller = Caller::current())
{
    fail(QStringLiteral("there is nothing"), caller);
}

} // namespace

class FailingTests : public QObject
{
    Q_OBJECT

public:
    static constexpr int lineBeforeTheCall = __LINE__;
    static void callWhatFails() { findNothing(); }

private slots:
    void theFirst()
    {
        callWhatFails();
        qInfo("the first goes on");
    }

    void aRow_data()
    {
        QTest::addColumn<bool>("fails");
        QTest::newRow("that fails") << true;
        QTest::newRow("that passes") << false;
    }

    void aRow()
    {
        QFETCH(bool, fails);
        if (fails)
            findNothing();
    }

    void theLast() {}
};

class TestTestMain : public QObject
{
    Q_OBJECT

    QString m_output;

private slots:
    void initTestCase()
    {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {u"failing_tests"_s});
        QVERIFY(process.waitForFinished());
        m_output = QString::fromUtf8(process.readAllStandardOutput());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 2);
    }

    void aHelperThatFailsFailsItsTestAtTheCallersLine()
    {
        const QString report =
            u"FAIL!  : tst_test_main::FailingTests::theFirst() there is nothing\n   Loc: [%1(%2)]"_s
                .arg(QStringLiteral(__FILE__),
                     QString::number(FailingTests::lineBeforeTheCall + 1));
        QVERIFY2(m_output.contains(report), qPrintable(m_output));
    }

    void theTestEndsThere() { QVERIFY(!m_output.contains(u"the first goes on"_s)); }

    void aTestThatDoesNotExistFailsAndThoseThatDoAreNamed()
    {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {u"tst_nothing"_s});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 255);
        QVERIFY(process.readAllStandardError().contains("tst_test_main\n"));
    }

    void theOtherTestsAndRowsRun()
    {
        QVERIFY(m_output.contains(u"FAIL!  : tst_test_main::FailingTests::aRow(that fails)"_s));
        QVERIFY(m_output.contains(u"PASS   : tst_test_main::FailingTests::aRow(that passes)"_s));
        QVERIFY(m_output.contains(u"PASS   : tst_test_main::FailingTests::theLast()"_s));
    }
};

QUENARA_TEST(TestTestMain)

static const NamedTest failingTests("failing_tests", [](int argc, char *argv[]) {
    const QCoreApplication application(argc, argv);
    return runTest<FailingTests>(argc, argv);
});

} // namespace tst_test_main

#include "tst_test_main.moc"
