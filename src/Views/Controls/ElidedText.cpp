#include "ElidedText.h"

#include <algorithm>

namespace quenara {

namespace {

constexpr QChar ellipsis = u'\u2026';
constexpr double widest = 10'000; // points; no window is wider

} // namespace

QString elidedText(const QString &text, const QFontMetricsF &metrics, Qt::TextElideMode mode,
                   double width)
{
    QString line = text.simplified();
    // A letter is at least a point wide, so that no more than these are seen at either end.
    const auto most = qsizetype(std::clamp(width, 0.0, widest)) + 1;
    if (line.size() > 2 * most)
        line = line.first(most) + ellipsis + line.last(most);
    return metrics.elidedText(line, mode, width);
}

} // namespace quenara
