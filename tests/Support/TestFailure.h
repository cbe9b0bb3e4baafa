#pragma once

#include <QObject>
#include <QString>

#include <source_location>

namespace quenara::test {

/// Where a test calls a helper: helpers that can fail take it as their last argument.
using Caller = std::source_location;

/// Thrown by fail().
struct TestFailure
{};

/// Reports at \a caller that the running test failed, and ends its function by throwing. Not to be
/// called from an event handler, which Qt lets no exception through.
[[noreturn]] void fail(const QString &message, const Caller &caller);

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

} // namespace quenara::test
