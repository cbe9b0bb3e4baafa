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
    /// That of \a Test, by which QTest calls the functions.
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

/// What a main of a test does once there is an application.
template<class Test>
int runTest(int argc, char *argv[])
{
    EndingAlone<Test> test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace quenara::test

/// A main for a test without windows.
#define QUENARA_TEST_MAIN(TestClass)                                                               \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        const QCoreApplication application(argc, argv);                                            \
        return quenara::test::runTest<TestClass>(argc, argv);                                      \
    }
