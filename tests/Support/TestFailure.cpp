#include "TestFailure.h"

#include <QTest>

namespace quenara::test {

void fail(const QString &message, const Caller &caller)
{
    QTest::qFail(qPrintable(message), caller.file_name(), int(caller.line()));
    throw TestFailure();
}

} // namespace quenara::test
