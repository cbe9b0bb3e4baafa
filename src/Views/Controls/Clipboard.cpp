#include "Clipboard.h"

#include <QGuiApplication>
#include <QMimeData>

namespace quenara {

const QMimeData *clipboardContents(QClipboard::Mode mode)
{
    const QMimeData *contents = QGuiApplication::clipboard()->mimeData(mode);
    return contents && !contents->formats().isEmpty() ? contents : nullptr;
}

QString pastedText(const QMimeData *source)
{
    QString text = source ? source->text() : QString();
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    return text;
}

QString pastedText(QClipboard::Mode mode)
{
    return pastedText(clipboardContents(mode));
}

} // namespace quenara
