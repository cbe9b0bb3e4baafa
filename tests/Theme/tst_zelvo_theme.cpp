#include "AppAppearance.h"
#include "InterfaceStyle.h"
#include "TestMain.h"
#include "ZelvoTheme.h"

#include <QPalette>
#include <QTest>

using namespace quenara;

namespace tst_zelvo_theme {

class TestZelvoTheme : public QObject
{
    Q_OBJECT

private slots:
    void hexText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QColor>("expected");
        const QColor amber(224, 161, 52);
        QTest::newRow("a leading hash is dropped") << "#e0a134" << amber;
        QTest::newRow("six digits need no hash") << "e0a134" << amber;
        QTest::newRow("spaces around are trimmed") << "  #e0a134 " << amber;
        QTest::newRow("three digits are doubled") << "FFF" << QColor(255, 255, 255);
        QTest::newRow("each of three digits is doubled") << "1a8" << QColor(17, 170, 136);
        QTest::newRow("the last pair of eight is the opacity")
            << "e0a13480" << QColor(224, 161, 52, 128);
        QTest::newRow("five digits give opaque black") << "#12345" << QColor(0, 0, 0);
        QTest::newRow("the empty text gives opaque black") << "" << QColor(0, 0, 0);
        QTest::newRow("unreadable digits count as zero") << "zz0000" << QColor(0, 0, 0);
        QTest::newRow("scanning stops at the first other character")
            << "12zz00" << QColor(0, 0, 0x12);
    }

    void hexText()
    {
        QFETCH(QString, text);
        QFETCH(QColor, expected);
        QCOMPARE(colorFromHex(text), expected);
    }

    void theTwoPalettesHoldTheEighteenRoles_data()
    {
        QTest::addColumn<QString>("role");
        QTest::addColumn<QString>("dark");
        QTest::addColumn<QString>("light");
        const QList<std::array<const char *, 3>> roles = {
            {"appBackground", "#080b10", "#eceef2"},
            {"panelBackground", "#0d1119", "#f7f7f5"},
            {"panelSecondaryBackground", "#111723", "#eeeeea"},
            {"panelHeaderBackground", "#151c29", "#e4e6ea"},
            {"canvasBackground", "#05070a", "#d8dbe1"},
            {"border", "#263143", "#c5c9d0"},
            {"separator", "#1b2433", "#d7d9dd"},
            {"primaryText", "#f3f6fb", "#20242b"},
            {"secondaryText", "#b6c0ce", "#525a66"},
            {"mutedText", "#758195", "#777f8c"},
            {"accent", "#e0a134", "#b87812"},
            {"accentHover", "#f0b84a", "#d28d1d"},
            {"live", "#45c46b", "#168743"},
            {"blackout", "#e34d4d", "#bd3131"},
            {"warning", "#f2c94c", "#9a6a10"},
            {"selection", "#52f0b84a", "#3dd28d1d"},
            {"controlBackground", "#151c29", "#ffffff"},
            {"inputBackground", "#0a0f17", "#fbfbfa"},
        };
        QCOMPARE(std::size_t(roles.size()), themeRoles.size());
        for (const auto &[role, dark, light] : roles)
            QTest::newRow(role) << role << dark << light;
    }

    void theTwoPalettesHoldTheEighteenRoles()
    {
        QFETCH(QString, role);
        QFETCH(QString, dark);
        QFETCH(QString, light);
        const auto found = std::find_if(themeRoles.begin(), themeRoles.end(), [&](const auto &r) {
            return role == QLatin1StringView(r.first.data(), qsizetype(r.first.size()));
        });
        QVERIFY(found != themeRoles.end());
        QCOMPARE((ZelvoTheme::dark().*(found->second)).rgba(), QColor(dark).rgba());
        QCOMPARE((ZelvoTheme::light().*(found->second)).rgba(), QColor(light).rgba());
    }

    void onlyTheDarkSchemeGivesTheDarkPalette()
    {
        constexpr int someFutureScheme = 7;
        QCOMPARE(&ZelvoTheme::current(ColorScheme::dark), &ZelvoTheme::dark());
        QCOMPARE(&ZelvoTheme::current(ColorScheme::light), &ZelvoTheme::light());
        QCOMPARE(&ZelvoTheme::current(ColorScheme(someFutureScheme)), &ZelvoTheme::light());
    }

    void theSchemeOfAnInterfacePaletteIsItsTheme()
    {
        QCOMPARE(colorSchemeOf(interfacePalette(ZelvoTheme::dark())), ColorScheme::dark);
        QCOMPARE(colorSchemeOf(interfacePalette(ZelvoTheme::light())), ColorScheme::light);
    }

    void aPaletteIsDarkWhereItsWindowsAreDarkerThanTheirText()
    {
        const auto palette = [](int window, int text) {
            QPalette greys;
            greys.setColor(QPalette::Window, QColor(window, window, window));
            greys.setColor(QPalette::WindowText, QColor(text, text, text));
            return greys;
        };
        QCOMPARE(colorSchemeOf(palette(120, 121)), ColorScheme::dark);
        QCOMPARE(colorSchemeOf(palette(121, 120)), ColorScheme::light);
        QCOMPARE(colorSchemeOf(palette(40, 39)), ColorScheme::light);
    }

    void appearancesStandInTheirOrderWithTitlesAndSchemes()
    {
        constexpr auto cases = allCases<AppAppearance>();
        QCOMPARE(cases.size(), 3U);
        QCOMPARE(rawValue(cases[0]), QStringLiteral("system"));
        QCOMPARE(rawValue(cases[1]), QStringLiteral("light"));
        QCOMPARE(rawValue(cases[2]), QStringLiteral("dark"));
        QCOMPARE(title(cases[0]), QStringLiteral("System"));
        QCOMPARE(title(cases[1]), QStringLiteral("Light"));
        QCOMPARE(title(cases[2]), QStringLiteral("Dark"));
        QVERIFY(!colorScheme(AppAppearance::system));
        QCOMPARE(colorScheme(AppAppearance::light), ColorScheme::light);
        QCOMPARE(colorScheme(AppAppearance::dark), ColorScheme::dark);
    }

    void aTextThatIsNoRawValueIsNoCaseAndCountsAsSystem()
    {
        for (const QString &text :
             {QStringLiteral("Dark"), QStringLiteral(""), QStringLiteral("night")}) {
            QVERIFY(!fromRawValue<AppAppearance>(text));
            QCOMPARE(appearanceFromPreference(text), AppAppearance::system);
        }
        QCOMPARE(appearanceFromPreference(QStringLiteral("dark")), AppAppearance::dark);
    }
};

QUENARA_TEST(TestZelvoTheme)

} // namespace tst_zelvo_theme

#include "tst_zelvo_theme.moc"
