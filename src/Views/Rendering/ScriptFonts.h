#pragma once

#include <QChar>
#include <QString>

namespace quenara {

/// Whose forms of the Chinese characters a text shows, as far as its other letters tell.
enum class HanForms { chinese, japanese, korean };

/// Those of a text that holds kana are Japanese, of one that holds hangul Korean.
[[nodiscard]] HanForms hanForms(QStringView text);

/// The family that shows letters of \a script, whatever the machine's language: the first installed
/// of those that this program knows, of the Noto families. Empty if there is none, or if the
/// script's letters are in the faces that are compiled in.
[[nodiscard]] QString scriptFamily(QChar::Script script, HanForms forms);

} // namespace quenara
