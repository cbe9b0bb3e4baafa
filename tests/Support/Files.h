#pragma once

#include "TestFailure.h"

#include <QByteArray>

namespace quenara::test {

/// Makes the file hold \a bytes and nothing else.
void writeFile(const QString &path, const QByteArray &bytes,
               const Caller &caller = Caller::current());

} // namespace quenara::test
