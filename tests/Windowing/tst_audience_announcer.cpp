#include "AudienceAnnouncer.h"
#include "GuiTestSupport.h"
#include "WindowingWorld.h"

#include <QAccessible>
#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;

namespace tst_audience_announcer {

namespace {

/// A demo service with somebody who listens.
struct Audience : WindowingWorld
{
    AudienceAnnouncer announcer{store, outputs};
    QSignalSpy announced{&announcer, &AudienceAnnouncer::announced};

    /// What was announced since the last call.
    QStringList heard()
    {
        QStringList words;
        for (const QVariantList &arguments :
             std::exchange(static_cast<QList<QVariantList> &>(announced), {}))
            words.append(arguments.constFirst().toString());
        return words;
    }
};

} // namespace

class TestAudienceAnnouncer : public GuiTest
{
    Q_OBJECT

private slots:
    void aLiveSlideIsToldByItsTitleAndPlace()
    {
        Audience audience;
        const QList<FlattenedSlide> show = audience.store.flattenedSlides();
        audience.store.nextLive();
        QCOMPARE(
            audience.heard(),
            QStringList(
                QStringLiteral("Live: %1, 2 of %2").arg(show.at(1).slide.title).arg(show.size())));
    }

    void aModeIsToldOnceAndTheLiveSlideWhenItIsBack()
    {
        Audience audience;
        audience.store.toggleBlackout();
        QCOMPARE(audience.heard(), QStringList(QStringLiteral("Blackout")));
        audience.store.toggleLogo();
        QCOMPARE(audience.heard(), QStringList(QStringLiteral("Logo")));
        audience.store.toggleLogo();
        const QStringList back = audience.heard();
        QCOMPARE(back.size(), 1);
        QVERIFY(back.constFirst().startsWith(QStringLiteral("Live: ")));
    }

    void theDisplayIsToldHoweverItIsOpenedAndClosed()
    {
        Audience audience;
        audience.commands.action(Command::toggleDisplayWindow)->trigger();
        QCOMPARE(audience.heard(), QStringList(QStringLiteral("Display opened")));
        audience.windows.displayWindow()->close();
        QCOMPARE(audience.heard(), QStringList(QStringLiteral("Display closed")));
        audience.windows.closeDisplayWindow();
        QCOMPARE(audience.heard(), QStringList());
    }

    void whatTheAudienceDoesNotSeeIsNotTold()
    {
        Audience audience;
        audience.store.goLive();
        audience.store.queueNext();
        audience.store.selectSlide(*audience.store.queuedSlideID(), false);
        audience.store.addTextLayer(SlideElementKind::text);
        audience.store.updateSelectedSlide(
            [](Slide &slide) { slide.title += QStringLiteral("!"); });
        audience.openStage();
        QCOMPARE(audience.heard(), QStringList());
    }

    void anotherDocumentTellsWhatItSendsLive()
    {
        Audience audience;
        audience.store.newBlankProject();
        QCOMPARE(audience.heard(), QStringList(QStringLiteral("Nothing live")));
        audience.store.addSlide();
        audience.store.updateSelectedSlide([](Slide &slide) { slide.title.clear(); });
        audience.heard();
        audience.store.toggleBlackout();
        audience.store.goLive();
        QCOMPARE(
            audience.heard(),
            QStringList({QStringLiteral("Blackout"), QStringLiteral("Live: Untitled, 1 of 1")}));
    }

    void readersFindANotificationWithTheWords()
    {
        Audience audience;
        audience.store.toggleBlackout();
        QAccessibleInterface *told = QAccessible::queryAccessibleInterface(&audience.announcer);
        QVERIFY(told);
        QCOMPARE(told->role(), QAccessible::Notification);
        QCOMPARE(told->text(QAccessible::Name), QStringLiteral("Blackout"));
        QVERIFY(!told->state().invisible);
    }
};

QUENARA_GUI_TEST(TestAudienceAnnouncer)

} // namespace tst_audience_announcer

#include "tst_audience_announcer.moc"
