#include "ControlTest.h"
#include "InterfaceStyle.h"
#include "SymbolButton.h"

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace {

/// Whether any pixel shows a symbol in \a ink.
bool shows(QWidget &control, const QColor &ink)
{
    const QImage image = control.grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == ink)
                return true;
        }
    }
    return false;
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
        QFETCH(QColor, light);
        QFETCH(QColor, dark);
        wear(ColorScheme::light);
        Shown button(new SymbolButton(u"circle.fill"_s, u"Add"_s, look));
        QVERIFY(shows(button.control, light));
        wear(ColorScheme::dark);
        QVERIFY(shows(button.control, dark));
        wear(ColorScheme::light);
        QVERIFY(shows(button.control, light));
    }
};

QUENARA_GUI_TEST_MAIN(TestSymbolButton)
#include "tst_symbol_button.moc"
