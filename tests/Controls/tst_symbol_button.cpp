#include "ControlTest.h"
#include "InterfaceStyle.h"
#include "SymbolButton.h"

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace {

/// The colour of the first pixel that a symbol covers.
QColor inkOf(const QIcon &icon)
{
    const QImage image = icon.pixmap(64).toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255)
                return image.pixelColor(x, y);
        }
    }
    return {};
}

void wear(ColorScheme scheme)
{
    const ZelvoTheme &theme = ZelvoTheme::current(scheme);
    QApplication::setPalette(interfacePalette(theme));
    qApp->setStyleSheet(interfaceStyleSheet(theme));
}

} // namespace

Q_DECLARE_METATYPE(SymbolButton::Look)

class TestSymbolButton : public GuiTest
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        qApp->setStyleSheet({});
        QApplication::setPalette({});
    }

    void theSymbolFollowsTheScheme_data()
    {
        QTest::addColumn<SymbolButton::Look>("look");
        QTest::addColumn<QColor>("light");
        QTest::addColumn<QColor>("dark");
        QTest::newRow("without a frame")
            << SymbolButton::Look::icon << ZelvoTheme::light().secondaryText
            << ZelvoTheme::dark().secondaryText;
        QTest::newRow("framed") << SymbolButton::Look::framed << ZelvoTheme::light().primaryText
                                << ZelvoTheme::dark().primaryText;
    }

    void theSymbolFollowsTheScheme()
    {
        QFETCH(SymbolButton::Look, look);
        wear(ColorScheme::light);
        Shown button(new SymbolButton(u"plus"_s, u"Add"_s, look));
        QTEST(inkOf(button.control.icon()), "light");
        wear(ColorScheme::dark);
        QTEST(inkOf(button.control.icon()), "dark");
        wear(ColorScheme::light);
        QTEST(inkOf(button.control.icon()), "light");
    }
};

QUENARA_GUI_TEST_MAIN(TestSymbolButton)
#include "tst_symbol_button.moc"
