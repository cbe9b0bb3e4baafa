#include "InterfaceStyle.h"

#include "Fonts.h"

#include <QApplication>
#include <QFile>
#include <QPixmapCache>
#include <QRegularExpression>
#include <QStyleFactory>

#include <algorithm>

namespace quenara {

namespace {

QString styleSheetColor(const QColor &color)
{
    return QStringLiteral("rgba(%1, %2, %3, %4)")
        .arg(color.red())
        .arg(color.green())
        .arg(color.blue())
        .arg(color.alpha());
}

QString roleColor(const ZelvoTheme &theme, const QString &name)
{
    if (name == QLatin1String("onAccent"))
        return styleSheetColor(readableOn(theme.accent));
    if (name == QLatin1String("accentMark"))
        return styleSheetColor(accentMark(theme));
    const auto role = std::find_if(themeRoles.begin(), themeRoles.end(), [&](const auto &entry) {
        return QLatin1StringView(entry.first.data(), qsizetype(entry.first.size())) == name;
    });
    Q_ASSERT_X(role != themeRoles.end(), "interfaceStyleSheet", qPrintable(name));
    return styleSheetColor(theme.*(role->second));
}

/// Newer releases of Qt have a role of its own for this colour.
template<class Palette>
void setAccent(Palette &palette, const QColor &color)
{
    if constexpr (requires { Palette::Accent; })
        palette.setColor(Palette::Accent, color);
}

} // namespace

void setUpInterface()
{
    constexpr double textSize = 13; // points
    // The interface is written in English and drawn from left to right, whatever the desktop's
    // language.
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    loadBundledFonts();
    QApplication::setFont(systemFont(textSize, QFont::Normal));
    // Each dialog leaves images in Qt's cache that nothing asks for again. The symbols that they
    // push out are rendered anew, all of a window's in a few milliseconds.
    constexpr int cacheLimit = 2048; // kB
    QPixmapCache::setCacheLimit(cacheLimit);
}

void applyTheme(const ZelvoTheme &theme)
{
    QApplication::setPalette(interfacePalette(theme));
    qApp->setStyleSheet(interfaceStyleSheet(theme));
}

QPalette interfacePalette(const ZelvoTheme &theme)
{
    QPalette palette;
    palette.setColor(QPalette::Window, theme.appBackground);
    palette.setColor(QPalette::WindowText, theme.primaryText);
    palette.setColor(QPalette::Base, theme.inputBackground);
    palette.setColor(QPalette::AlternateBase, theme.panelSecondaryBackground);
    palette.setColor(QPalette::Text, theme.primaryText);
    palette.setColor(QPalette::PlaceholderText, theme.mutedText);
    palette.setColor(QPalette::Button, theme.controlBackground);
    palette.setColor(QPalette::ButtonText, theme.primaryText);
    palette.setColor(QPalette::BrightText, theme.blackout);
    palette.setColor(QPalette::ToolTipBase, theme.panelHeaderBackground);
    palette.setColor(QPalette::ToolTipText, theme.primaryText);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.appBackground);
    setAccent(palette, theme.accent);
    palette.setColor(QPalette::Link, theme.accent);
    palette.setColor(QPalette::LinkVisited, theme.accentHover);
    palette.setColor(QPalette::Light, theme.border);
    palette.setColor(QPalette::Midlight, theme.separator);
    palette.setColor(QPalette::Mid, theme.separator);
    palette.setColor(QPalette::Dark, theme.border);
    palette.setColor(QPalette::Shadow, theme.canvasBackground);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, theme.mutedText);
    return palette;
}

QString interfaceStyleSheet(const ZelvoTheme &theme)
{
    QFile file(QStringLiteral(":/style/interface.qss"));
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT(opened);
    QString sheet = opened ? QString::fromUtf8(file.readAll()) : QString();
    static const QRegularExpression reference(QStringLiteral("@([A-Za-z]+)"));
    for (auto match = reference.match(sheet); match.hasMatch();
         match = reference.match(sheet, match.capturedStart())) {
        sheet.replace(match.capturedStart(), match.capturedLength(),
                      roleColor(theme, match.captured(1)));
    }
    return sheet;
}

} // namespace quenara
