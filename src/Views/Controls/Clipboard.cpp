#include "Clipboard.h"

#include <QGuiApplication>
#include <QMimeData>

namespace quenara {

const QMimeData *clipboardContents(QClipboard::Mode mode)
{
    const QMimeData *contents = QGuiApplication::clipboard()->mimeData(mode);
    return contents && !contents->formats().isEmpty() ? contents : nullptr;
}

QList<QUrl> filesIn(const QMimeData &source)
{
    QList<QUrl> files = source.urls();
    files.removeIf([](const QUrl &url) { return !url.isLocalFile(); });
    return files;
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
