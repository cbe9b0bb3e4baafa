#include "PlainToolTip.h"

#include "ShortenedText.h"

#include <QTextDocument>

namespace quenara {

namespace {

constexpr qsizetype longestToolTip = 2000; ///< characters; more would cover the screen

} // namespace

QString plainToolTip(const QString &text)
{
    const QString shown = shortened(text, longestToolTip);
    return Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown) : shown;
}

QString buttonToolTip(const QString &text, const QKeySequence &key)
{
    return key.isEmpty()
        ? text
        : QStringLiteral("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText));
}

} // namespace quenara
