#include "TestMain.h"

#include <QProcess>
#include <QTest>

using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace {

constexpr auto runsFailingTests = "--failing-tests";

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
        process.start(QCoreApplication::applicationFilePath(),
                      {QString::fromLatin1(runsFailingTests)});
        QVERIFY(process.waitForFinished());
        m_output = QString::fromUtf8(process.readAllStandardOutput());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 2);
    }

    void aHelperThatFailsFailsItsTestAtTheCallersLine()
    {
        const QString report =
            u"FAIL!  : FailingTests::theFirst() there is nothing\n   Loc: [%1(%2)]"_s.arg(
                QStringLiteral(__FILE__), QString::number(FailingTests::lineBeforeTheCall + 1));
        QVERIFY2(m_output.contains(report), qPrintable(m_output));
    }

    void theTestEndsThere() { QVERIFY(!m_output.contains(u"the first goes on"_s)); }

    void theOtherTestsAndRowsRun()
    {
        QVERIFY(m_output.contains(u"FAIL!  : FailingTests::aRow(that fails)"_s));
        QVERIFY(m_output.contains(u"PASS   : FailingTests::aRow(that passes)"_s));
        QVERIFY(m_output.contains(u"PASS   : FailingTests::theLast()"_s));
    }
};

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (!QCoreApplication::arguments().contains(QString::fromLatin1(runsFailingTests)))
        return runTest<TestTestMain>(argc, argv);
    int justTheName = 1;
    return runTest<FailingTests>(justTheName, argv);
}

#include "tst_test_main.moc"
