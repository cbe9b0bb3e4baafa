#include "Fonts.h"

#include <QDir>
#include <QFontDatabase>
#include <QSet>

#include <cmath>

namespace quenara {

namespace {

// As resources/fonts.list has them.
const auto slideFamily = QStringLiteral("Quenara Slide");
const auto interfaceFamily = QStringLiteral("Quenara Interface");

} // namespace

bool isFamilyInstalled(const QString &family)
{
    // Asked for a single family, the platform takes long and answers with one that is merely alike.
    static const QSet<QString> families = [] {
        QSet<QString> folded;
        for (const QString &name : QFontDatabase::families())
            folded.insert(name.toCaseFolded());
        return folded;
    }();
    return families.contains(family.toCaseFolded());
}

bool isFamilyBundled(const QString &family)
{
    return family.compare(slideFamily, Qt::CaseInsensitive) == 0
        || family.compare(interfaceFamily, Qt::CaseInsensitive) == 0;
}

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
    return interfaceFamily;
}

QString slideFontFamily()
{
    return slideFamily;
}

QString emojiFontFamily()
{
    for (const char16_t *family : {u"Noto Color Emoji", u"Apple Color Emoji", u"Segoe UI Emoji"}) {
        const QString name = QString::fromUtf16(family);
        if (isFamilyInstalled(name))
            return name;
    }
    return {};
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
