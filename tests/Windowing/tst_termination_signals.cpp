#include "TerminationSignals.h"
#include "TestMain.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

using namespace quenara;

namespace tst_termination_signals {

namespace {

using Handler = void (*)(int);

Handler handlerOf(int number)
{
    struct sigaction action
    {};
    ::sigaction(number, nullptr, &action);
    return action.sa_handler;
}

/// Has a signal handled in one way while it lives.
class Inherited
{
public:
    Inherited(int number, Handler handler)
        : m_number(number), m_former(std::signal(number, handler))
    {}
    ~Inherited() { std::signal(m_number, m_former); }
    Q_DISABLE_COPY_MOVE(Inherited)

private:
    int m_number;
    Handler m_former;
};

} // namespace

class TestTerminationSignals : public QObject
{
    Q_OBJECT

    static void addSignals()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("asked to end") << SIGTERM;
        QTest::newRow("its terminal is gone") << SIGHUP;
        QTest::newRow("interrupted at its terminal") << SIGINT;
    }

private slots:
    void aSignalIsToldOfWithinTheEventLoop_data() { addSignals(); }

    void aSignalIsToldOfWithinTheEventLoop()
    {
        QFETCH(int, number);
        const TerminationSignals listening;
        QSignalSpy received(&listening, &TerminationSignals::received);
        std::raise(number);
        QCOMPARE(received.size(), 0);
        QVERIFY(received.wait());
        QCOMPARE(received.size(), 1);
    }

    void whatTheProcessIgnoredFromItsBeginningStaysIgnored_data() { addSignals(); }

    void whatTheProcessIgnoredFromItsBeginningStaysIgnored()
    {
        QFETCH(int, number);
        const Inherited ignored(number, SIG_IGN);
        const int other = number == SIGTERM ? SIGHUP : SIGTERM;
        const TerminationSignals listening;
        QVERIFY(handlerOf(number) == SIG_IGN);
        QSignalSpy received(&listening, &TerminationSignals::received);
        std::raise(number);
        QCoreApplication::processEvents();
        QCOMPARE(received.size(), 0);
        std::raise(other);
        QVERIFY(received.wait());
    }

    void whatWasThereBeforeIsPutBack_data() { addSignals(); }

    void whatWasThereBeforeIsPutBack()
    {
        QFETCH(int, number);
        for (const Handler handler : {SIG_IGN, SIG_DFL}) {
            const Inherited inherited(number, handler);
            {
                const TerminationSignals listening;
            }
            QVERIFY(handlerOf(number) == handler);
        }
    }
};

QUENARA_TEST(TestTerminationSignals)

} // namespace tst_termination_signals

#include "tst_termination_signals.moc"
