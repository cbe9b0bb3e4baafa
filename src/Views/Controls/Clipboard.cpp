#include "Clipboard.h"

#include <QGuiApplication>
#include <QMimeData>

namespace quenara {

QString pastedText(const QMimeData *source)
{
    QString text = source ? source->text() : QString();
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    return text;
}

QString pastedText(QClipboard::Mode mode)
{
    return pastedText(QGuiApplication::clipboard()->mimeData(mode));
}

} // namespace quenara
