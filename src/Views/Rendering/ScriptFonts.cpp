#include "ScriptFonts.h"

#include "Fonts.h"

#include <algorithm>
#include <array>

namespace quenara {

namespace {

struct ScriptName
{
    QChar::Script script;
    const char16_t *name; ///< as families for it are called
};

constexpr std::array scriptNames{
    ScriptName{QChar::Script_Arabic, u"Arabic"},
    ScriptName{QChar::Script_Armenian, u"Armenian"},
    ScriptName{QChar::Script_Bengali, u"Bengali"},
    ScriptName{QChar::Script_Cherokee, u"Cherokee"},
    ScriptName{QChar::Script_Coptic, u"Coptic"},
    ScriptName{QChar::Script_Devanagari, u"Devanagari"},
    ScriptName{QChar::Script_Ethiopic, u"Ethiopic"},
    ScriptName{QChar::Script_Georgian, u"Georgian"},
    ScriptName{QChar::Script_Gujarati, u"Gujarati"},
    ScriptName{QChar::Script_Gurmukhi, u"Gurmukhi"},
    ScriptName{QChar::Script_Hebrew, u"Hebrew"},
    ScriptName{QChar::Script_Kannada, u"Kannada"},
    ScriptName{QChar::Script_Khmer, u"Khmer"},
    ScriptName{QChar::Script_Lao, u"Lao"},
    ScriptName{QChar::Script_Malayalam, u"Malayalam"},
    ScriptName{QChar::Script_Mongolian, u"Mongolian"},
    ScriptName{QChar::Script_Myanmar, u"Myanmar"},
    ScriptName{QChar::Script_Oriya, u"Oriya"},
    ScriptName{QChar::Script_Sinhala, u"Sinhala"},
    ScriptName{QChar::Script_Syriac, u"Syriac"},
    ScriptName{QChar::Script_Tamil, u"Tamil"},
    ScriptName{QChar::Script_Telugu, u"Telugu"},
    ScriptName{QChar::Script_Thaana, u"Thaana"},
    ScriptName{QChar::Script_Thai, u"Thai"},
    ScriptName{QChar::Script_Tibetan, u"Tibetan"},
};

/// The Naskh has the lowest lines of those for Arabic, so that its letters can be largest.
constexpr std::array styles{u"Noto Naskh ", u"Noto Sans ", u"Noto Serif "};

QString eastAsian(HanForms forms)
{
    switch (forms) {
    case HanForms::chinese:
        return QStringLiteral("CJK SC");
    case HanForms::japanese:
        return QStringLiteral("CJK JP");
    case HanForms::korean:
        break;
    }
    return QStringLiteral("CJK KR");
}

/// The last words of the names of families for \a script; empty if no other face is needed for it.
QString nameOf(QChar::Script script, HanForms forms)
{
    switch (script) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Hangul:
    case QChar::Script_Bopomofo:
        return eastAsian(forms);
    default:
        break;
    }
    const auto *known =
        std::find_if(scriptNames.begin(), scriptNames.end(),
                     [script](const ScriptName &entry) { return entry.script == script; });
    return known == scriptNames.end() ? QString() : QString::fromUtf16(known->name);
}

} // namespace

HanForms hanForms(QStringView text)
{
    const auto has = [text](QChar::Script script) {
        return std::any_of(text.begin(), text.end(),
                           [script](QChar letter) { return letter.script() == script; });
    };
    if (has(QChar::Script_Hiragana) || has(QChar::Script_Katakana))
        return HanForms::japanese;
    return has(QChar::Script_Hangul) ? HanForms::korean : HanForms::chinese;
}

QString scriptFamily(QChar::Script script, HanForms forms)
{
    const QString name = nameOf(script, forms);
    if (name.isEmpty())
        return {};
    for (const char16_t *style : styles) {
        const QString family = QString::fromUtf16(style) + name;
        if (isFamilyInstalled(family))
            return family;
    }
    return {};
}

} // namespace quenara
