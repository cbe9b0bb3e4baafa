#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "Symbols.h"

#include <QDir>
#include <QPainter>
#include <QPixmapCache>
#include <QPushButton>
#include <QRegularExpression>

#include <cmath>

using namespace quenara;
using namespace quenara::test;

namespace tst_interface_style {

namespace {

/// The symbol on a square of that many points, transparent elsewhere.
QImage painted(const QString &symbol, const QColor &color, int size, double ratio = 1)
{
    QImage image(QSize(size, size) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintSymbol(painter, QRect(0, 0, size, size), symbol, color);
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

} // namespace

class TestInterfaceStyle : public GuiTest
{
    Q_OBJECT

private slots:
    void theStyleSheetNamesColoursOfItsThemeOnly()
    {
        static const QRegularExpression color(QStringLiteral(
            "rgba\\((\\d+), (\\d+), (\\d+), (\\d+)\\)|#[0-9a-fA-F]{3,8}\\b(?=[^{]*;)"));
        for (const ZelvoTheme *theme : {&ZelvoTheme::dark(), &ZelvoTheme::light()}) {
            const QString sheet = interfaceStyleSheet(*theme);
            QVERIFY(!sheet.contains(QLatin1Char('@')));
            int colors = 0;
            for (auto matches = color.globalMatch(sheet); matches.hasNext(); ++colors) {
                const auto match = matches.next();
                const QColor found(match.captured(1).toInt(), match.captured(2).toInt(),
                                   match.captured(3).toInt(), match.captured(4).toInt());
                QVERIFY2(std::any_of(themeRoles.begin(), themeRoles.end(),
                                     [&](const auto &role) {
                                         return (theme->*(role.second)).rgba() == found.rgba();
                                     })
                             || found == readableOn(theme->accent)
                             || found.rgba() == accentMark(*theme).rgba(),
                         qPrintable(match.captured()));
            }
            QVERIFY(colors > 10);
        }
    }

    void theStyleSheetPaintsButtonsInTheThemesControlColour()
    {
        QPushButton button;
        button.resize(120, 60);
        for (const ZelvoTheme *theme : {&ZelvoTheme::dark(), &ZelvoTheme::light()}) {
            button.setPalette(interfacePalette(*theme));
            button.setStyleSheet(interfaceStyleSheet(*theme));
            QCOMPARE(button.grab().toImage().pixelColor(60, 12), theme->controlBackground);
        }
    }

    void aPaletteTakesEveryColourFromTheThemesRoles()
    {
        for (const ZelvoTheme *theme : {&ZelvoTheme::dark(), &ZelvoTheme::light()}) {
            const QPalette palette = interfacePalette(*theme);
            QCOMPARE(palette.color(QPalette::Window), theme->appBackground);
            QCOMPARE(palette.color(QPalette::Base), theme->inputBackground);
            QCOMPARE(palette.color(QPalette::Button), theme->controlBackground);
            QCOMPARE(palette.color(QPalette::WindowText), theme->primaryText);
            QCOMPARE(palette.color(QPalette::Highlight), theme->accent);
            QCOMPARE(palette.color(QPalette::HighlightedText), theme->appBackground);
            QCOMPARE(palette.color(QPalette::PlaceholderText), theme->mutedText);
            for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
                QCOMPARE(palette.color(QPalette::Disabled, role), theme->mutedText);
            for (int role = 0; role < QPalette::NColorRoles; ++role) {
                if (role == QPalette::NoRole)
                    continue;
                const QRgb color =
                    palette.color(QPalette::Active, QPalette::ColorRole(role)).rgba();
                QVERIFY2(std::any_of(themeRoles.begin(), themeRoles.end(),
                                     [&](const auto &entry) {
                                         return (theme->*(entry.second)).rgba() == color;
                                     }),
                         qPrintable(QString::number(role)));
            }
        }
    }

    void anIconIsDrawnInItsColourAndSharpAtTwoPixelsAPoint()
    {
        const QColor color(10, 200, 30);
        for (const double ratio : {1.0, 2.0}) {
            const QImage image = painted(QStringLiteral("folder"), color, 16, ratio);
            QCOMPARE(image, painted(QStringLiteral("folder"), color, int(16 * ratio)));
            bool isOpaqueSomewhere = false;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QColor pixel = image.pixelColor(x, y);
                    if (pixel.alpha() == 255) {
                        QCOMPARE(pixel, color);
                        isOpaqueSomewhere = true;
                    }
                }
            }
            QVERIFY(isOpaqueSomewhere);
        }
    }

    void whatIsReadOnAColourContrastsWithItAsWellAsWhiteOrBlackCan()
    {
        QCOMPARE(contrast(Qt::white, Qt::black), 21.0);
        QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
        QCOMPARE(contrast(Qt::red, Qt::red), 1.0);
        QVERIFY(std::abs(contrast(QColor(0x26, 0x26, 0x26), Qt::white) - 15.13) < 0.005);
        QCOMPARE(readableOn(Qt::black), QColor(Qt::white));
        QCOMPARE(readableOn(Qt::white), ZelvoTheme::dark().canvasBackground);
        for (const ZelvoTheme *theme : {&ZelvoTheme::dark(), &ZelvoTheme::light()}) {
            for (const QColor &fill : {theme->live, theme->accent, theme->accentHover})
                QVERIFY(contrast(readableOn(fill), fill) >= 4.5);
        }
    }

    void theInterfaceRunsFromLeftToRightWhateverTheDesktopsLanguage()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        setUpInterface();
        QCOMPARE(QApplication::layoutDirection(), Qt::LeftToRight);
    }

    void everySymbolOfTheListIsDrawn()
    {
        const QStringList files = QDir(QStringLiteral(":/icons")).entryList();
        QVERIFY(files.size() > 40);
        for (const QString &file : files) {
            const QString symbol = file.chopped(4);
            const QImage image = painted(symbol, Qt::white, 16);
            QImage blank(image.size(), image.format());
            blank.fill(Qt::transparent);
            QVERIFY2(image != blank, qPrintable(symbol));
        }
    }

    void imagesThatNothingAsksForAgainTakeLittleMemory()
    {
        constexpr int images = 32;
        constexpr int side = 256; // 256 kB each
        setUpInterface();
        QPixmapCache::clear();
        int kept = 0;
        for (int i = 0; i < images; ++i) {
            QPixmap image(side, side);
            image.fill(Qt::white);
            QPixmapCache::insert(QString::number(i), image);
        }
        for (int i = 0; i < images; ++i)
            kept += int(QPixmapCache::find(QString::number(i), nullptr));
        QVERIFY(kept > 0);
        QVERIFY2(kept <= images / 4, qPrintable(QString::number(kept)));
    }
};

QUENARA_GUI_TEST(TestInterfaceStyle)

} // namespace tst_interface_style

#include "tst_interface_style.moc"
