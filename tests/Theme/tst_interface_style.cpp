#include "GuiTestSupport.h"
#include "Icons.h"
#include "InterfaceStyle.h"

#include <QPushButton>

using namespace quenara;
using namespace quenara::test;

class TestInterfaceStyle : public GuiTest
{
    Q_OBJECT

private slots:
    void theStyleSheetNamesColoursOfItsThemeOnly()
    {
        const QString dark = interfaceStyleSheet(ZelvoTheme::dark());
        const QString light = interfaceStyleSheet(ZelvoTheme::light());
        QVERIFY(!dark.contains(QLatin1Char('@')));
        QVERIFY(dark != light);
        QVERIFY(dark.contains(QStringLiteral("rgba(224, 161, 52, 255)")));
        QVERIFY(light.contains(QStringLiteral("rgba(184, 120, 18, 255)")));
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
        const QPalette palette = interfacePalette(ZelvoTheme::dark());
        QCOMPARE(palette.color(QPalette::Window), ZelvoTheme::dark().appBackground);
        QCOMPARE(palette.color(QPalette::Base), ZelvoTheme::dark().inputBackground);
        QCOMPARE(palette.color(QPalette::WindowText), ZelvoTheme::dark().primaryText);
        QCOMPARE(palette.color(QPalette::Disabled, QPalette::Text), ZelvoTheme::dark().mutedText);
        QCOMPARE(palette.color(QPalette::PlaceholderText), ZelvoTheme::dark().mutedText);
    }

    void anIconIsDrawnInItsColourAndSharpAtTwoPixelsAPoint()
    {
        const QColor color(10, 200, 30);
        const QIcon icon = tintedIcon(QStringLiteral("folder2-open"), color);
        for (const double ratio : {1.0, 2.0}) {
            const QImage image = icon.pixmap(QSize(16, 16), ratio).toImage();
            QCOMPARE(image.size(), QSize(16, 16) * ratio);
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

    void aDisabledIconIsFainter()
    {
        const QIcon icon = tintedIcon(QStringLiteral("folder2-open"), Qt::white);
        const auto strongest = [&icon](QIcon::Mode mode) {
            const QImage image = icon.pixmap(QSize(16, 16), 1.0, mode).toImage();
            int alpha = 0;
            for (int i = 0; i < 16 * 16; ++i)
                alpha = std::max(alpha, qAlpha(image.pixel(i % 16, i / 16)));
            return alpha;
        };
        QVERIFY(strongest(QIcon::Disabled) < strongest(QIcon::Normal));
        QVERIFY(strongest(QIcon::Disabled) > 0);
    }
};

QUENARA_GUI_TEST_MAIN(TestInterfaceStyle)
#include "tst_interface_style.moc"
