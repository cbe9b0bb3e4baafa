#pragma once

#include <QFontMetricsF>
#include <QString>

namespace quenara {

/// \a text in one line that is no wider than \a width (points), an ellipsis where \a mode leaves
/// something out. A text of any length takes no longer than one that fills the width.
[[nodiscard]] QString elidedText(const QString &text, const QFontMetricsF &metrics,
                                 Qt::TextElideMode mode, double width);

} // namespace quenara
