#include "FileNames.h"

#include "ShortenedText.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace quenara {

QString fileNameFrom(const QString &name)
{
    constexpr qsizetype longest = 255; // bytes, on every file system that is in use
    static const QRegularExpression unfit(QStringLiteral(R"([/\\"\x{00}-\x{1f}\x{7f}]+)"));
    static const QRegularExpression hiding(QStringLiteral(R"(^[\s.]+)"));
    QString fit = name;
    fit.replace(unfit, QStringLiteral("-")).remove(hiding);
    const qsizetype dot = std::max<qsizetype>(0, fit.lastIndexOf(QLatin1Char('.')));
    const QString suffix = fit.mid(dot);
    QString stem = fit.first(dot).trimmed();
    while (!stem.isEmpty() && QFile::encodeName(stem + suffix).size() > longest)
        stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
    return stem + suffix;
}

QString portableName(const QString &text)
{
    constexpr qsizetype longest = 60; // characters, enough to tell what it is
    static const QRegularExpression unfit(QStringLiteral(R"([/\\"<>:|?*\x{00}-\x{1f}\x{7f}]+)"));
    static const QRegularExpression ends(QStringLiteral(R"(^[\s.]+|[\s.]+$)"));
    return shortened(text.simplified(), longest).replace(unfit, QStringLiteral("-")).remove(ends);
}

} // namespace quenara
