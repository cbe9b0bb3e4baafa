#pragma once

#include <QByteArrayView>

namespace quenara::bench {

/// A line of this process's status, in bytes; \a key as "VmRSS:".
[[nodiscard]] double memoryStatus(QByteArrayView key);

} // namespace quenara::bench
