#include "ControlTest.h"
#include "Pixels.h"
#include "SymbolButton.h"

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_symbol_button {

namespace {

/// Whether anything in \a ink is seen.
bool shows(QWidget &control, const QColor &ink)
{
    return pixelsOf(ink, control.grab().toImage()) > 0;
}

void wear(ColorScheme scheme)
{
    applyTheme(ZelvoTheme::current(scheme));
}

} // namespace

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
        QTest::newRow("prominent")
            << SymbolButton::Look::prominent << readableOn(ZelvoTheme::light().live)
            << readableOn(ZelvoTheme::dark().live);
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

    void aButtonThatIsDisabledKeepsItsFrameOrTheLackOfOne_data()
    {
        QTest::addColumn<SymbolButton::Look>("look");
        QTest::addColumn<bool>("isFramed");
        QTest::newRow("without a frame") << SymbolButton::Look::icon << false;
        QTest::newRow("framed") << SymbolButton::Look::framed << true;
        QTest::newRow("labelled") << SymbolButton::Look::labelled << true;
    }

    void aButtonThatIsDisabledKeepsItsFrameOrTheLackOfOne()
    {
        QFETCH(SymbolButton::Look, look);
        wear(ColorScheme::dark);
        Shown button(new SymbolButton(u"circle.fill"_s, u"Add"_s, look));
        button.control.setEnabled(false);
        QTEST(shows(button.control, ZelvoTheme::dark().separator), "isFramed");
    }

    void theTooltipIsTheTitle_data()
    {
        QTest::addColumn<SymbolButton::Look>("look");
        using enum SymbolButton::Look;
        QTest::newRow("without a frame") << icon;
        QTest::newRow("framed") << framed;
        QTest::newRow("labelled") << labelled;
        QTest::newRow("tile") << tile;
        QTest::newRow("prominent") << prominent;
    }

    void theTooltipIsTheTitle()
    {
        QFETCH(SymbolButton::Look, look);
        const SymbolButton button(u"circle.fill"_s, u"Add"_s, look);
        QCOMPARE(button.toolTip(), u"Add"_s);
    }

    void buttonsWithATitleGiveWayWhereRoomIsScarce()
    {
        const auto slackOf = [](SymbolButton::Look look) {
            const SymbolButton button(u"circle.fill"_s, u"Add"_s, look);
            return button.sizeHint() - button.minimumSizeHint();
        };
        using enum SymbolButton::Look;
        QCOMPARE(slackOf(icon), QSize(0, 0));
        QCOMPARE(slackOf(framed), QSize(0, 0));
        QCOMPARE(slackOf(labelled), QSize(12, 0));
        QCOMPARE(slackOf(tile), QSize(8, 0));
        QCOMPARE(slackOf(prominent), QSize(12, 0));
    }
};

QUENARA_GUI_TEST(TestSymbolButton)

} // namespace tst_symbol_button

#include "tst_symbol_button.moc"
