#include "ColorWell.h"
#include "ControlTest.h"
#include "DialogParts.h"
#include "FocusRing.h"
#include "Pixels.h"
#include "ThemeColors.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QSignalSpy>
#include <QSpinBox>
#include <QWheelEvent>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_color_well {

namespace {

struct Well : Shown<ColorWell>
{
    QList<RGBAColor> tried;
    QSignalSpy finished{&control, &ColorWell::editingFinished};
    QSignalSpy cancelled{&control, &ColorWell::editingCancelled};

    explicit Well(const std::optional<RGBAColor> &color) : Shown(new ColorWell(u"Fill"_s))
    {
        control.setColor(color);
        QObject::connect(&control, &ColorWell::edited, &control,
                         [this](const RGBAColor &edited) { tried.append(edited); });
    }

    void click() { QTest::mouseClick(&control, Qt::LeftButton); }
    /// The dialogs that are open.
    QList<QColorDialog *> dialogs() const
    {
        QList<QColorDialog *> open = control.findChildren<QColorDialog *>();
        open.removeIf([](const QColorDialog *dialog) { return !dialog->isVisible(); });
        return open;
    }
};

const RGBAColor glass{0, 0.2, 0.4, 0.6};

} // namespace

class TestColorWell : public GuiTest
{
    Q_OBJECT

private slots:
    void aClickOpensADialogWithTheColourAndItsAlpha()
    {
        Well well(glass);
        well.click();
        QCOMPARE(well.dialogs().size(), 1);
        const QColorDialog &dialog = *well.dialogs().constFirst();
        QVERIFY(dialog.isVisible());
        QVERIFY(dialog.testOption(QColorDialog::ShowAlphaChannel));
        QCOMPARE(dialog.currentColor().rgba(), glass.toColor().rgba());
        QCOMPARE(dialog.windowTitle(), u"Fill"_s);
        // The windows of the audience keep their keys.
        QCOMPARE(dialog.windowModality(), Qt::WindowModal);
        QVERIFY(well.tried.isEmpty());
    }

    void eachColourThatIsTriedIsToldOf()
    {
        Well well(glass);
        well.click();
        well.dialogs().constFirst()->setCurrentColor(QColor(255, 0, 51, 102));
        QVERIFY(!well.tried.isEmpty());
        QCOMPARE(well.tried.constLast().toColor().rgba(), qRgba(255, 0, 51, 102));
        QVERIFY(well.finished.isEmpty());
    }

    void anAcceptedDialogFinishesAndARejectedOneCancels()
    {
        Well well(glass);
        well.click();
        well.dialogs().constFirst()->accept();
        QCOMPARE(well.finished.size(), 1);
        QVERIFY(well.dialogs().isEmpty());
        well.click();
        well.dialogs().constFirst()->reject();
        QCOMPARE(well.finished.size(), 1);
        QCOMPARE(well.cancelled.size(), 1);
    }

    void aDialogThatIsTooLargeScrollsAllButItsButtons()
    {
        constexpr QSize room(600, 320);
        FocusRing focusRing;
        qApp->installEventFilter(&focusRing);
        QColorDialog dialog;
        fitInto(room, dialog);
        showActive(dialog);
        QCOMPARE(dialog.size().boundedTo(room), dialog.size());
        for (const QPushButton *button :
             dialog.findChild<QDialogButtonBox *>()->findChildren<QPushButton *>())
            QCOMPARE(button->visibleRegion(), QRegion(button->rect()));
        QSet<const QWidget *> reached;
        while (!reached.contains(QApplication::focusWidget())) {
            const QWidget *part = QApplication::focusWidget();
            reached.insert(part);
            QVERIFY2(!part->visibleRegion().isEmpty(), part->metaObject()->className());
            QTest::keyClick(&dialog, Qt::Key_Tab);
        }
        for (const QSpinBox *number : dialog.findChildren<QSpinBox *>())
            QVERIFY(reached.contains(number) || number->isHidden());
    }

    void theWheelScrollsADialogThatIsTooLargeAndChangesNoNumber()
    {
        QColorDialog dialog(QColor(100, 100, 100));
        fitInto(QSize(600, 320), dialog);
        showActive(dialog);
        auto *area = dialog.findChild<QScrollArea *>();
        QVERIFY(area->verticalScrollBar()->maximum() > 0);
        for (QSpinBox *number : dialog.findChildren<QSpinBox *>()) {
            const QPointF place = number->rect().center();
            QWheelEvent down(place, number->mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                             Qt::NoModifier, Qt::NoScrollPhase, false);
            QSpontaneKeyEvent::setSpontaneous(&down); // else it is not passed on
            qApp->notify(number, &down);
        }
        QCOMPARE(dialog.currentColor(), QColor(100, 100, 100));
        QVERIFY(area->verticalScrollBar()->value() > 0);
    }

    void aDialogThatFitsStaysAsItIs()
    {
        QColorDialog dialog;
        const QSize whole = dialog.sizeHint();
        fitInto(whole, dialog);
        QCOMPARE(dialog.sizeHint(), whole);
        QVERIFY(!dialog.findChild<QScrollArea *>());
    }

    void anEmptyWellOpensNoDialog()
    {
        Well well(std::nullopt);
        well.click();
        QVERIFY(well.dialogs().isEmpty());
    }

    void endingTheEditingClosesTheDialogWithoutAWord()
    {
        Well well(glass);
        well.click();
        well.control.endEditing();
        QVERIFY(well.dialogs().isEmpty());
        QVERIFY(well.finished.isEmpty());
        QVERIFY(well.cancelled.isEmpty());
    }

    void aTranslucentColourLetsAPatternThrough()
    {
        Well well(RGBAColor{1, 0, 0, 1});
        const QPoint middle = well.control.rect().center();
        const auto colorsAroundTheMiddle = [&] {
            const QImage image = well.control.grab().toImage();
            QSet<QRgb> colors;
            for (int x = middle.x() - 10; x < middle.x() + 10; ++x)
                colors.insert(image.pixel(x, middle.y()));
            return colors;
        };
        QCOMPARE(colorsAroundTheMiddle(), QSet<QRgb>{qRgb(255, 0, 0)});
        well.control.setColor(RGBAColor{1, 0, 0, 0.5});
        QCOMPARE(colorsAroundTheMiddle().size(), 2);
    }
};

QUENARA_GUI_TEST(TestColorWell)

} // namespace tst_color_well

#include "tst_color_well.moc"
