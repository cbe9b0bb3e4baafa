#pragma once

#include "TestFailure.h"

#include <QCoreApplication>
#include <QTest>

namespace quenara::test {

/// \a Test with functions of which each ends alone when it fails: without this, what fail() throws
/// would end the whole executable.
template<class Test>
class EndingAlone : public Test
{
public:
    /// The meta-object of \a Test, except that its calls catch TestFailure.
    const QMetaObject *metaObject() const override
    {
        static const QMetaObject catching = [] {
            QMetaObject copy = Test::staticMetaObject;
            copy.d.static_metacall = call;
            return copy;
        }();
        return &catching;
    }

private:
    static void call(QObject *test, QMetaObject::Call call, int index, void **arguments)
    {
        try {
            Test::staticMetaObject.d.static_metacall(test, call, index, arguments);
        } catch (const TestFailure &) {
            // fail() has reported it.
        }
    }
};

/// Runs \a Test, for which there has to be an application. Returns the number of failures.
template<class Test>
int runTest(int argc, char *argv[])
{
    EndingAlone<Test> test;
    return QTest::qExec(&test, argc, argv);
}

/// A test of this executable, whose first argument names the one to run: tst_transport for what
/// tst_transport.cpp holds. The others are Qt Test's.
class NamedTest
{
public:
    using Run = int (*)(int argc, char *argv[]);

    /// Lives as long as the executable; \a name is a path, of which the stem counts.
    NamedTest(const char *name, Run run) noexcept;

    /// Runs the one that \a argv names. Returns the number of its failures, or 255 when there is
    /// none of that name.
    static int runNamed(int argc, char *argv[]);

private:
    const char *m_name;
    Run m_run;
    NamedTest *m_next;
};

} // namespace quenara::test

/// A test without windows that needs an application of a certain class.
#define QUENARA_TEST_WITH(Application, TestClass)                                                  \
    static const quenara::test::NamedTest named##TestClass(__FILE__, [](int argc, char *argv[]) {  \
        const Application application(argc, argv);                                                 \
        return quenara::test::runTest<TestClass>(argc, argv);                                      \
    });

/// Any other test without windows.
#define QUENARA_TEST(TestClass) QUENARA_TEST_WITH(QCoreApplication, TestClass)
