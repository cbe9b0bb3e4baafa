#include "PlainToolTip.h"

#include <QTextDocument>

namespace quenara {

QString plainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

QString buttonToolTip(const QString &text, const QKeySequence &key)
{
    return key.isEmpty()
        ? text
        : QStringLiteral("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText));
}

} // namespace quenara
