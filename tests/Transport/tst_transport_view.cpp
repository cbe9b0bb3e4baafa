#include "CommandWorld.h"
#include "GuiTestSupport.h"
#include "PreviewNotice.h"
#include "RenderCaches.h"
#include "SlideView.h"
#include "SymbolButton.h"
#include "TransportView.h"

using namespace Qt::StringLiterals;
using namespace quenara;
using namespace quenara::test;

namespace tst_transport_view {

namespace {

/// The bar in a window, as wide as it is in the smallest window of the operator.
struct Transport : CommandWorld
{
    RenderCaches caches;
    QWidget window;
    TransportView view{store, commands, caches, &window};

    Transport() : Transport(showOf({1})) {}
    explicit Transport(const ZelvoProject &project) : CommandWorld(project)
    {
        view.resize(1180, TransportView::barHeight);
        window.resize(view.size());
        showActive(window);
    }

    const SlideView *preview(const QString &name) const { return &named<SlideView>(view, name); }

    /// The captions of the queued and the live preview.
    QStringList captions() const { return labelTexts(view); }

    bool isChecked(const QString &name) const
    {
        return named<SymbolButton>(view, name).isChecked();
    }
};

/// Whether some pixel of an \a area is lighter than what a notice darkens the slide with.
bool lightIn(const QImage &image, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixelColor(x, y).lightness() > 60 && image.pixelColor(x, y).alpha() > 200)
                return true;
        }
    }
    return false;
}

} // namespace

class TestTransportView : public GuiTest
{
    Q_OBJECT

private slots:
    void previewsShowTheQueuedAndTheLiveSlide()
    {
        Transport op(showOf({3}));
        op.store.queueNext();
        QCOMPARE(op.captions(),
                 QStringList({u"Queued"_s, u"Title of A2"_s, u"Live"_s, u"Title of A1"_s}));
        QCOMPARE(op.preview(QStringLiteral("Queued slide"))->slide(),
                 op.store.slideWithID(QStringLiteral("A2")));
        QCOMPARE(op.preview(QStringLiteral("Live slide"))->slide(),
                 op.store.slideWithID(QStringLiteral("A1")));
        QCOMPARE(op.preview(QStringLiteral("Live slide"))->size(), QSize(178, 100));
    }

    void withNothingQueuedAndLiveBothReadNone()
    {
        Transport op;
        op.store.newBlankProject();
        QCOMPARE(op.captions(), QStringList({u"Queued"_s, u"None"_s, u"Live"_s, u"None"_s}));
        for (const char *name : {"Queued slide", "Live slide"}) {
            QWidget *preview = const_cast<SlideView *>(op.preview(QLatin1String(name)));
            QCOMPARE(preview->grab().toImage().pixelColor(89, 50), QColor(Qt::black));
        }
    }

    void buttonsCallTheirOperation_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<std::function<void(WorkspaceStore &)>>("operation");
        const auto row = [](const char *name, void (WorkspaceStore::*operation)()) {
            QTest::newRow(name) << QString::fromUtf8(
                name) << std::function<void(WorkspaceStore &)>([operation](WorkspaceStore &store) {
                (store.*operation)();
            });
        };
        row("Previous", &WorkspaceStore::previousLive);
        row("Go Live", &WorkspaceStore::goLive);
        row("Next", &WorkspaceStore::nextLive);
        row("Queue Prev", &WorkspaceStore::queuePrevious);
        row("Queue Next", &WorkspaceStore::queueNext);
        row("Blackout", &WorkspaceStore::toggleBlackout);
        row("Logo", &WorkspaceStore::toggleLogo);
    }

    void buttonsCallTheirOperation()
    {
        QFETCH(QString, name);
        QFETCH(std::function<void(WorkspaceStore &)>, operation);
        const ZelvoProject show = showOf({5});
        Transport pressed(show);
        World called(show);
        for (WorkspaceStore *store : {&pressed.store, &called.store}) {
            store->selectSlide(QStringLiteral("A3"), true);
            store->goLive();
            store->queueNext();
        }
        const WorkspaceState before = pressed.store.state();
        press(pressed.view, name);
        operation(called.store);
        QCOMPARE(selectionOf(pressed.store.state()), selectionOf(called.store.state()));
        QCOMPARE(pressed.store.outputMode(), called.store.outputMode());
        QVERIFY(pressed.store.state() != before);
    }

    void noButtonIsEverDisabled()
    {
        Transport op;
        op.store.newBlankProject();
        QCOMPARE(op.view.findChildren<SymbolButton *>().size(), 9);
        for (SymbolButton *button : op.view.findChildren<SymbolButton *>()) {
            QVERIFY(button->isEnabled());
            QTest::mouseClick(button, Qt::LeftButton);
        }
        QVERIFY(!op.store.liveSlideID());
    }

    void blackoutTwiceReturnsToLiveAndOnlyItsButtonShowsIt()
    {
        Transport op;
        press(op.view, QStringLiteral("Blackout"));
        QCOMPARE(op.store.outputMode(), OutputMode::blackout);
        QVERIFY(op.isChecked(QStringLiteral("Blackout")));
        QVERIFY(!op.isChecked(QStringLiteral("Logo")));
        press(op.view, QStringLiteral("Blackout"));
        QCOMPARE(op.store.outputMode(), OutputMode::live);
        QVERIFY(!op.isChecked(QStringLiteral("Blackout")));
    }

    void aModeThatIsToggledElsewhereShowsOnItsButton()
    {
        Transport op;
        op.store.toggleLogo();
        QVERIFY(op.isChecked(QStringLiteral("Logo")));
        op.store.goLive();
        QVERIFY(!op.isChecked(QStringLiteral("Logo")));
    }

    void theLivePreviewTellsWhatTheAudienceSees_data()
    {
        QTest::addColumn<std::function<void(Transport &)>>("happening");
        QTest::addColumn<QString>("notice");
        const auto row = [](const char *name, const char *notice, auto happening) {
            QTest::newRow(name) << std::function<void(Transport &)>(happening)
                                << QString::fromUtf8(notice);
        };
        row("no display is open", "No display", [](Transport &) {});
        row("none, whatever it would show", "No display",
            [](Transport &op) { op.store.toggleBlackout(); });
        row("the live slide", "", [](Transport &op) { op.outputs.toggleDisplayWindow(); });
        row("black", "BLACKOUT", [](Transport &op) {
            op.outputs.toggleDisplayWindow();
            op.store.toggleBlackout();
        });
        row("the holding screen", "LOGO", [](Transport &op) {
            op.store.toggleLogo();
            op.outputs.toggleDisplayWindow();
        });
        row("the live slide again", "", [](Transport &op) {
            op.outputs.toggleDisplayWindow();
            op.store.toggleBlackout();
            op.store.goLive();
        });
        row("nothing since the second screen went", "Waiting for the second screen",
            [](Transport &op) {
                op.outputs.toggleDisplayWindow();
                op.outputs.loseDisplay();
            });
        row("the live slide since it came back", "", [](Transport &op) {
            op.outputs.loseDisplay();
            op.outputs.toggleDisplayWindow();
        });
        row("nothing since the display was closed", "No display", [](Transport &op) {
            op.outputs.toggleDisplayWindow();
            op.store.toggleLogo();
            op.outputs.toggleDisplayWindow();
        });
    }

    void theLivePreviewTellsWhatTheAudienceSees()
    {
        QFETCH(std::function<void(Transport &)>, happening);
        QFETCH(QString, notice);
        Transport op(showOf({3}));
        op.store.queueNext();
        happening(op);
        const SlideView &live = *op.preview(QStringLiteral("Live slide"));
        const auto *shown = live.findChild<PreviewNotice *>();
        QCOMPARE(shown->isVisible() ? shown->text() : QString(), notice);
        QCOMPARE(shown->isVisible(), !notice.isEmpty());
        QCOMPARE(shown->geometry(), live.rect());
        QVERIFY(live.accessibleDescription().endsWith(notice));
        QVERIFY(
            !op.preview(QStringLiteral("Queued slide"))->findChild<PreviewNotice *>()->isVisible());
    }

    void aNoticeIsReadWholeOnTheSmallestPreview_data()
    {
        QTest::addColumn<std::function<void(Transport &)>>("happening");
        const auto row = [](const char *name, auto happening) {
            QTest::newRow(name) << std::function<void(Transport &)>(happening);
        };
        row("No display", [](Transport &) {});
        row("Waiting for the second screen", [](Transport &op) { op.outputs.loseDisplay(); });
        row("BLACKOUT", [](Transport &op) {
            op.outputs.toggleDisplayWindow();
            op.store.toggleBlackout();
        });
        row("LOGO", [](Transport &op) {
            op.outputs.toggleDisplayWindow();
            op.store.toggleLogo();
        });
    }

    /// By what it darkens and writes: there is a margin of one colour around the words.
    void aNoticeIsReadWholeOnTheSmallestPreview()
    {
        QFETCH(std::function<void(Transport &)>, happening);
        Transport op(showOf({3}));
        op.view.resize(op.view.minimumSizeHint());
        happening(op);
        QWidget &live = named(op.view, u"Live slide"_s);
        QCOMPARE(live.size(), QSize(96, 54));
        auto &notice = *live.findChild<PreviewNotice *>();
        QVERIFY(notice.isVisible());
        QImage words(notice.size(), QImage::Format_ARGB32_Premultiplied);
        words.fill(Qt::transparent);
        notice.render(&words, QPoint(), QRegion(), QWidget::RenderFlags());
        QVERIFY(lightIn(words, words.rect()));
        for (const QRect &edge :
             {QRect(0, 0, 6, 54), QRect(90, 0, 6, 54), QRect(0, 0, 96, 3), QRect(0, 51, 96, 3)})
            QVERIFY(!lightIn(words, edge));
    }

    void aNoticeLeavesTheTitlesTheSlidesAndTheirFramesAsTheyAre()
    {
        Transport op(showOf({3}));
        op.store.queueNext();
        op.outputs.toggleDisplayWindow();
        const auto look = [&op] { return op.view.grab().toImage(); };
        const QStringList captions = op.captions();
        const QImage live = look();
        op.store.toggleBlackout();
        QCOMPARE(op.captions(), captions);
        QCOMPARE(op.preview(QStringLiteral("Live slide"))->slide(),
                 op.store.slideWithID(QStringLiteral("A1")));
        const QRect slide(op.preview(QStringLiteral("Live slide"))->mapTo(&op.view, QPoint()),
                          op.preview(QStringLiteral("Live slide"))->size());
        const QImage black = look();
        QVERIFY(live.copy(slide) != black.copy(slide));
        // The outline, on the middle of each side.
        for (const QPoint &place :
             {QPoint(slide.center().x(), slide.top()), QPoint(slide.left(), slide.center().y()),
              QPoint(slide.right(), slide.center().y())}) {
            QCOMPARE(black.pixelColor(place), live.pixelColor(place));
        }
    }

    void displayAndMonitorToggleTheirWindows()
    {
        Transport op;
        press(op.view, QStringLiteral("Display"));
        QVERIFY(op.outputs.isDisplayWindowOpen());
        QVERIFY(op.isChecked(QStringLiteral("Display")));
        QVERIFY(!op.isChecked(QStringLiteral("Monitor")));
        press(op.view, QStringLiteral("Display"));
        QVERIFY(!op.outputs.isDisplayWindowOpen());
        press(op.view, QStringLiteral("Monitor"));
        QVERIFY(op.outputs.isStageWindowOpen());
        op.outputs.toggleStageWindow();
        QVERIFY(!op.isChecked(QStringLiteral("Monitor")));
    }

    void everyButtonFitsAtTheSmallestWidth_data()
    {
        QTest::addColumn<bool>("isStacked");
        QTest::newRow("that is stated") << false;
        QTest::newRow("of all, in pairs one above the other") << true;
    }

    void everyButtonFitsAtTheSmallestWidth()
    {
        QFETCH(bool, isStacked);
        Transport op;
        if (isStacked)
            op.view.resize(op.view.minimumSizeHint());
        const auto rowOf = [&op](const QString &name) { return named(op.view, name).y(); };
        QCOMPARE(rowOf(u"Queue Prev"_s) < rowOf(u"Queue Next"_s), isStacked);
        QCOMPARE(rowOf(u"Blackout"_s) < rowOf(u"Logo"_s), isStacked);
        QCOMPARE(rowOf(u"Display"_s) < rowOf(u"Monitor"_s), isStacked);
        const QList<SymbolButton *> buttons = op.view.findChildren<SymbolButton *>();
        QVERIFY(!buttons.isEmpty());
        for (const SymbolButton *a : buttons) {
            QVERIFY(a->width() >= a->minimumSizeHint().width());
            QVERIFY(op.view.rect().contains({a->mapTo(&op.view, QPoint()), a->size()}));
            for (const SymbolButton *b : buttons)
                QVERIFY(a == b || !a->geometry().intersects(b->geometry()));
        }
    }
};

QUENARA_GUI_TEST(TestTransportView)

} // namespace tst_transport_view

#include "tst_transport_view.moc"
