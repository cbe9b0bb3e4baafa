#include "FullDisk.h"
#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "Recovery.h"
#include "RecoverySheet.h"
#include "SessionJournal.h"
#include "SessionRecorder.h"

#include <QDir>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_recovery {

namespace {

/// The program after an unexpected end of others.
struct NextStart : ProgramWindows
{
    QTemporaryDir state;
    QString journals = state.filePath(u"recovery"_s);
    SessionRecorder recorder{store, journals};
    std::unique_ptr<Recovery> recovery;
    bool mayOpen = true; ///< what the operator answers when a file is open elsewhere
    QStringList askedOf; ///< the files that this was asked of

    /// Leaves the journal of a program that had \a opened windows.
    void leave(const QString &name, const SessionWindows &opened = {}, bool isUnsaved = true) const
    {
        World world(showOf({2, 2}));
        SessionRecorder killed(world.store, journals);
        killed.setWindows(opened);
        world.panels.answer = fileUrl(name + u".quenara"_s);
        world.store.updateProjectName(name);
        world.store.saveProject();
        world.store.nextLive();
        if (isUnsaved)
            world.store.addShapeLayer();
        // A copy, since the original goes with its recorder.
        const QStringList files = QDir(journals).entryList(QDir::Files, QDir::Time);
        for (const QString &file : files) {
            QFile original(journals + u'/' + file);
            if (original.open(QIODevice::ReadOnly)
                && SessionJournal::read(original.readAll())->projectName == name)
                QFile::copy(original.fileName(), journals + u'/' + name + u".journal"_s);
        }
    }

    RecoverySheet *start()
    {
        recovery =
            std::make_unique<Recovery>(Recovery::Context{.store = store,
                                                         .outputs = outputs,
                                                         .recorder = recorder,
                                                         .questions = questions,
                                                         .mayOpen =
                                                             [this](const QUrl &file) {
                                                                 askedOf.append(file.fileName());
                                                                 return mayOpen;
                                                             }},
                                       journals);
        operatorWindow.askAbout(*recovery);
        return sheet();
    }

    RecoverySheet *sheet() const
    {
        for (RecoverySheet *sheet : operatorWindow.findChildren<RecoverySheet *>()) {
            if (sheet->isVisible())
                return sheet;
        }
        return nullptr;
    }

    QStringList files() const { return QDir(journals).entryList(QDir::Files); }
};

} // namespace

class TestRecovery : public GuiTest
{
    Q_OBJECT

private slots:
    void whereNothingIsLeftNothingIsAsked()
    {
        NextStart program;
        QVERIFY(!program.start());
        QVERIFY(!program.recovery->isAsking());
    }

    void whatIsContinuedComesBackWithItsWindows()
    {
        NextStart program;
        program.leave(u"Sunday"_s, {.display = DisplayPlace::besideOperator, .isStageOpen = true});
        RecoverySheet *sheet = program.start();
        QVERIFY(sheet);
        const QSignalSpy answered(program.recovery.get(), &Recovery::answered);
        press(*sheet, u"Continue"_s);
        QVERIFY(!program.sheet());
        QCOMPARE(answered.size(), 1);
        QVERIFY(answered.first().first().toBool());
        QCOMPARE(program.store.project().name, u"Sunday"_s);
        QCOMPARE(program.store.liveSlideID(), u"A2"_s);
        QVERIFY(program.store.hasUnsavedChanges());
        QVERIFY(!program.store.canUndo());
        QVERIFY(program.windows.isDisplayWindowOpen());
        QCOMPARE(program.windows.displayWindow()->geometry(), QRect(1920, 0, 1920, 1080));
        QVERIFY(program.windows.isStageWindowOpen());
        // It is in the journal of this process alone from here on.
        QCOMPARE(program.files().size(), 1);
        QVERIFY(!program.files().contains(u"Sunday.journal"_s));
    }

    void workWhoseFileIsNotToBeOpenedGoesOnBeingOffered()
    {
        NextStart program;
        program.leave(u"Sunday"_s);
        program.mayOpen = false;
        RecoverySheet *sheet = program.start();
        const ZelvoProject before = program.store.project();
        press(*sheet, u"Continue"_s);
        QCOMPARE(program.askedOf, QStringList{u"Sunday.quenara"_s});
        QCOMPARE(program.sheet(), sheet);
        QCOMPARE(program.store.project(), before);
        QVERIFY(program.files().contains(u"Sunday.journal"_s));
        QVERIFY(!program.recovery->journals().isEmpty());
        program.mayOpen = true;
        press(*sheet, u"Continue"_s);
        QVERIFY(!program.sheet());
        QCOMPARE(program.store.project().name, u"Sunday"_s);
    }

    void aClosedDisplayStaysClosed()
    {
        NextStart program;
        program.leave(u"Sunday"_s);
        press(*program.start(), u"Continue"_s);
        QVERIFY(!program.windows.isDisplayWindowOpen());
        QVERIFY(!program.windows.isDisplayWaiting());
        QVERIFY(!program.windows.isStageWindowOpen());
    }

    void discardingUnsavedWorkAsksOnceMore()
    {
        NextStart program;
        program.leave(u"Sun\u202eday"_s); // would turn the words after it
        QPointer<RecoverySheet> sheet = program.start();
        const QSignalSpy answered(program.recovery.get(), &Recovery::answered);
        press(*sheet, u"Discard"_s);
        QCOMPARE(program.questions.asked,
                 QList{(LeaveQuestion{.text = u"Do you want to discard the unsaved changes to "
                                              u"\u201cSunday\u201d?"_s,
                                      .detail = u"They cannot be brought back."_s,
                                      .offersSave = false,
                                      .proceedTitle = u"Discard"_s})});
        QVERIFY(program.sheet());
        QCOMPARE(program.files().size(), 1);
        program.questions.answer = LeaveAnswer::proceed;
        press(*sheet, u"Discard"_s);
        QVERIFY(!program.sheet());
        QCOMPARE(program.files(), QStringList());
        QCOMPARE(answered.size(), 1);
        QVERIFY(!answered.first().first().toBool());
    }

    void aShowWithNothingUnsavedIsDiscardedAtOnce()
    {
        NextStart program;
        program.leave(u"Sunday"_s, {}, false);
        press(*program.start(), u"Discard"_s);
        QVERIFY(program.questions.asked.isEmpty());
        QCOMPARE(program.files(), QStringList());
    }

    void ofSeveralOnlyTheChosenOneIsTouched()
    {
        NextStart program;
        program.questions.answer = LeaveAnswer::proceed;
        for (const QString &name : {u"First"_s, u"Second"_s, u"Third"_s})
            program.leave(name);
        RecoverySheet *sheet = program.start();
        QCOMPARE(program.recovery->works().size(), 3);
        QTest::mouseClick(&named<QPushButton>(*sheet, u"Second"_s), Qt::LeftButton);
        press(*sheet, u"Discard"_s);
        QCOMPARE(program.sheet(), sheet);
        QCOMPARE(program.files(), (QStringList{u"First.journal"_s, u"Third.journal"_s}));
        QTest::mouseClick(&named<QPushButton>(*sheet, u"Third"_s), Qt::LeftButton);
        press(*sheet, u"Continue"_s);
        QVERIFY(!program.sheet());
        QCOMPARE(program.store.project().name, u"Third"_s);
        QVERIFY(program.files().contains(u"First.journal"_s));
        QVERIFY(!program.files().contains(u"Third.journal"_s));
    }

    void whatIsLeftIsKept()
    {
        NextStart program;
        program.leave(u"Sunday"_s);
        RecoverySheet *sheet = program.start();
        const QSignalSpy answered(program.recovery.get(), &Recovery::answered);
        sheet->reject();
        QCOMPARE(answered.size(), 1);
        QVERIFY(!answered.first().first().toBool());
        QCOMPARE(program.files(), QStringList{u"Sunday.journal"_s});
        QVERIFY(program.start());
    }

    void aFileThatCannotBeReadIsToldOfAndItsJournalKept()
    {
        NextStart program;
        program.leave(u"Sunday"_s, {.display = DisplayPlace::besideOperator}, false);
        QVERIFY(QFile::remove(program.fileUrl(u"Sunday.quenara"_s).toLocalFile()));
        const ZelvoProject before = program.store.project();
        press(*program.start(), u"Continue"_s);
        QCOMPARE(program.store.errorMessage(), u"Quenara could not read that file."_s);
        QCOMPARE(program.store.project(), before);
        QVERIFY(!program.windows.isDisplayWindowOpen());
        QVERIFY(program.files().contains(u"Sunday.journal"_s));
        program.store.dismissError();
    }

    void workIsKeptUntilItIsInAnotherJournal_data()
    {
        QTest::addColumn<bool>("isUnsaved");
        QTest::newRow("unsaved work") << true;
        QTest::newRow("the show of a saved document") << false;
    }

    void workIsKeptUntilItIsInAnotherJournal()
    {
        QFETCH(bool, isUnsaved);
        NextStart program;
        program.leave(u"Sunday"_s, {}, isUnsaved);
        QTest::ignoreMessage(QtInfoMsg, "Quenara could not write its recovery journal.");
        {
            const FullDisk disk;
            press(*program.start(), u"Continue"_s);
        }
        QCOMPARE(program.store.project().name, u"Sunday"_s);
        QCOMPARE(program.store.hasUnsavedChanges(), isUnsaved);
        QCOMPARE(program.files(), QStringList{u"Sunday.journal"_s});
    }

    void theWindowsOfASessionAreWhatReopensThem()
    {
        WindowingWorld world;
        QWidget operatorWindow;
        world.windows.keepOff(operatorWindow);
        QCOMPARE(world.windows.sessionWindows(), SessionWindows());
        world.openDisplay();
        QCOMPARE(world.windows.sessionWindows().display, DisplayPlace::besideOperator);
        world.openStage();
        QVERIFY(world.windows.sessionWindows().isStageOpen);
        const SessionWindows both = world.windows.sessionWindows();
        world.windows.closeDisplayWindow();
        world.windows.closeStageWindow();
        world.outputs.reopen(both);
        QCOMPARE(world.windows.sessionWindows(), both);
    }
};

QUENARA_GUI_TEST(TestRecovery)

} // namespace tst_recovery

#include "tst_recovery.moc"
