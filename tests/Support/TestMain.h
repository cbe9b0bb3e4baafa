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

} // namespace quenara::test

/// A main for a test without windows that needs an application of a certain class.
#define QUENARA_TEST_MAIN_WITH(Application, TestClass)                                             \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        const Application application(argc, argv);                                                 \
        return quenara::test::runTest<TestClass>(argc, argv);                                      \
    }

/// A main for any other test without windows.
#define QUENARA_TEST_MAIN(TestClass) QUENARA_TEST_MAIN_WITH(QCoreApplication, TestClass)
