#include "PlainToolTip.h"

#include <QTextDocument>

namespace quenara {

QString plainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace quenara
