#include "SlideFonts.h"

#include "Fonts.h"

namespace quenara {

namespace {

/// The family that stands in for one that documents name and that may not be shipped.
QString standIn(const QString &family)
{
    if (family == u"Avenir Next")
        return slideFontFamily();
    if (family == u"Georgia")
        return QStringLiteral("serif");
    if (family == u"Menlo")
        return QStringLiteral("monospace");
    return systemFontFamily();
}

} // namespace

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

QString slideFamily(const QString &family)
{
    // An installed face of that name may be another release.
    if (family.compare(u"Lato", Qt::CaseInsensitive) == 0)
        return slideFontFamily();
    if (family.compare(u"Inter", Qt::CaseInsensitive) == 0)
        return systemFontFamily();
    return isFamilyInstalled(family) ? family : standIn(family);
}

QFont slideFont(const QString &family, TextFontWeight weight, int pixelSize)
{
    QFont font(slideFamily(family));
    font.setPixelSize(pixelSize);
    font.setWeight(fontWeight(weight));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace quenara
