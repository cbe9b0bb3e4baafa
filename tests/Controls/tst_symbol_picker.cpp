#include "ControlTest.h"
#include "InterfaceStyle.h"
#include "SymbolButton.h"
#include "SymbolPicker.h"

#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_symbol_picker {

namespace {

struct Alignment : Shown<SymbolPicker>
{
    QSignalSpy activated{&control, &SymbolPicker::activated};

    Alignment()
        : Shown(new SymbolPicker(u"Alignment"_s,
                                 {{u"text.alignleft"_s, u"Align Left"_s, u"left"_s},
                                  {u"text.aligncenter"_s, u"Align Center"_s, u"center"_s}}))
    {}
};

} // namespace

class TestSymbolPicker : public GuiTest
{
    Q_OBJECT

private slots:
    void theButtonOfTheValueIsMarked()
    {
        Alignment alignment;
        const auto buttons = alignment.control.findChildren<SymbolButton *>();
        QCOMPARE(alignment.control.value(), QString());
        alignment.control.setValue(u"center"_s);
        QVERIFY(!buttons.at(0)->isChecked());
        QVERIFY(buttons.at(1)->isChecked());
        QCOMPARE(alignment.control.value(), u"center"_s);
        QVERIFY(alignment.activated.isEmpty());
    }

    void theMarkIsTheAccentAtLittleOpacity()
    {
        const ZelvoTheme &theme = ZelvoTheme::light();
        Alignment alignment;
        alignment.window.setPalette(Qt::white);
        alignment.window.setStyleSheet(interfaceStyleSheet(theme));
        alignment.control.setValue(u"center"_s);
        const auto mixed = [](int accent) { return qRound(255 + 0.22 * (accent - 255)); };
        const QColor expected(mixed(theme.accent.red()), mixed(theme.accent.green()),
                              mixed(theme.accent.blue()));
        const auto backgroundOf = [&](qsizetype button) {
            const QWidget *widget = alignment.control.findChildren<SymbolButton *>().at(button);
            return alignment.window
                .grab(QRect(widget->mapTo(&alignment.window, QPoint(4, 4)), QSize(1, 1)))
                .toImage()
                .pixelColor(0, 0);
        };
        QCOMPARE(backgroundOf(0), QColor(Qt::white));
        QCOMPARE(backgroundOf(1), expected);
    }

    void noButtonIsMarkedForAnUnknownValue()
    {
        Alignment alignment;
        alignment.control.setValue(u"center"_s);
        alignment.control.setValue(u"justified"_s);
        QCOMPARE(alignment.control.value(), QString());
    }

    void aClickTellsOfItsValue()
    {
        Alignment alignment;
        QTest::mouseClick(alignment.control.findChildren<SymbolButton *>().at(1), Qt::LeftButton);
        QCOMPARE(alignment.activated, (QList<QVariantList>{{u"center"_s}}));
    }
};

QUENARA_GUI_TEST(TestSymbolPicker)

} // namespace tst_symbol_picker

#include "tst_symbol_picker.moc"
