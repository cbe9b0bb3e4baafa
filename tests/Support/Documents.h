#pragma once

#include "ProjectCodec.h"

#include <QByteArray>

#include <optional>

namespace quenara::test {

/// What bytes are read as.
enum class Reading { nothing, legacy, current };
Reading readingOf(const QByteArray &bytes);

/// The project that the bytes are read as; nothing if they are no current document.
std::optional<ZelvoProject> currentProject(const QByteArray &bytes);

/// The older document that the bytes are read as; nothing if they are a current one or none.
std::optional<LegacyQuenaraDocument> legacyDocument(const QByteArray &bytes);

/// The bytes of \a project; empty if it cannot be written.
QByteArray encoded(const ZelvoProject &project);

/// The text of \a bytes with the one occurrence of \a before replaced; empty unless there is
/// exactly one.
QByteArray replaced(QByteArray bytes, const QByteArray &before, const QByteArray &after);

} // namespace quenara::test
