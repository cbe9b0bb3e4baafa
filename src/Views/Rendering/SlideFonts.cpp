#include "SlideFonts.h"

#include <QDir>
#include <QFontDatabase>
#include <QSet>

#include <cmath>

namespace quenara {

namespace {

/// What stands in for the families that documents name and that are not free to ship.
QString standIn(const QString &family)
{
    if (family == u"Avenir Next")
        return QStringLiteral("Lato");
    if (family == u"Georgia")
        return QStringLiteral("serif");
    if (family == u"Menlo")
        return QStringLiteral("monospace");
    return systemFontFamily();
}

/// As it is when the first slide is painted. Asked for one by one, the platform takes its time and
/// names families that are merely alike.
bool isInstalled(const QString &family)
{
    static const QSet<QString> families = [] {
        QSet<QString> folded;
        for (const QString &name : QFontDatabase::families())
            folded.insert(name.toCaseFolded());
        return folded;
    }();
    return families.contains(family.toCaseFolded());
}

} // namespace

int loadBundledFonts()
{
    int faces = 0;
    const QDir fonts(QStringLiteral(":/fonts"));
    for (const QString &name : fonts.entryList(QDir::Files))
        faces += QFontDatabase::addApplicationFont(fonts.filePath(name)) >= 0 ? 1 : 0;
    return faces;
}

QString systemFontFamily()
{
    return QStringLiteral("Inter");
}

QString emojiFontFamily()
{
    for (const char16_t *family : {u"Noto Color Emoji", u"Apple Color Emoji", u"Segoe UI Emoji"}) {
        const QString name = QString::fromUtf16(family);
        if (isInstalled(name))
            return name;
    }
    return {};
}

QFont::Weight fontWeight(TextFontWeight weight)
{
    switch (weight) {
    case TextFontWeight::regular:
        return QFont::Normal;
    case TextFontWeight::medium:
        return QFont::Medium;
    case TextFontWeight::semibold:
        return QFont::DemiBold;
    case TextFontWeight::bold:
        return QFont::Bold;
    case TextFontWeight::heavy:
        break;
    }
    return QFont::ExtraBold;
}

QFont slideFont(const QString &family, TextFontWeight weight, int pixelSize)
{
    QFont font(isInstalled(family) ? family : standIn(family));
    font.setPixelSize(pixelSize);
    font.setWeight(fontWeight(weight));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QFont systemFont(double pixelSize, QFont::Weight weight)
{
    QFont font(systemFontFamily());
    font.setPixelSize(int(std::lround(pixelSize)));
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace quenara
