#include "Files.h"
#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "SessionEnd.h"
#include "SessionRecorder.h"

#include <QDir>
#include <QSessionManager>

#include <sys/syscall.h>
#include <unistd.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_session_end {

namespace {

int broughtToDiskCount = 0;

/// The program in a session of a desktop whose manager lets nobody ask anything.
struct Program : ProgramWindows
{
    QString journals = folder.filePath(u"recovery"_s);
    SessionRecorder recorder{store, journals};
    SessionEnd sessionEnd{store, operatorWindow, guard, recorder};

    Program()
    {
        panels.answer = fileUrl(u"Sunday.quenara"_s);
        store.saveProject();
        QCoreApplication::sendPostedEvents();
    }

    /// Takes the journal away, and the place for another.
    void letNothingBeKept() const
    {
        QDir(journals).removeRecursively();
        writeFile(journals, {});
    }

    static void endSession()
    {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
    }

    /// Returns how often something was brought to the disk before the program has answered.
    static int askedToEnd(const Caller &caller = Caller::current())
    {
        auto *manager = qApp->findChild<QSessionManager *>();
        if (!manager || manager->allowsInteraction())
            fail(u"there is no session manager of this kind"_s, caller);
        broughtToDiskCount = 0;
        emit qApp->commitDataRequest(*manager);
        return broughtToDiskCount;
    }
};

} // namespace

// Stands in the place of the C library's, for Qt as well.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): its names are not ours to use
extern "C" int fdatasync(int file)
{
    ++broughtToDiskCount;
    return int(::syscall(SYS_fdatasync, file));
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)

class TestSessionEnd : public GuiTest
{
    Q_OBJECT

private slots:
    void unsavedWorkIsOnTheDiskBeforeTheSessionMayEnd()
    {
        Program program;
        program.store.updateProjectName(u"Changed"_s);
        QCOMPARE(Program::askedToEnd(), 1);
        QVERIFY(program.recorder.synchronize());
        QCOMPARE(program.questions.asked.size(), 0);
    }

    void workThatCannotBeLeftIsAskedAboutWhenTheSessionEnds()
    {
        Program program;
        program.store.updateProjectName(u"Changed"_s);
        program.letNothingBeKept();
        QTest::ignoreMessage(QtInfoMsg, "Quenara could not write its recovery journal.");
        Program::askedToEnd();
        QCOMPARE(program.questions.asked.size(), 0);
        Program::endSession();
        QCOMPARE(program.questions.asked.size(), 1);
        QVERIFY(program.operatorWindow.isVisible());
    }

    void workThatIsLostAfterTheAnswerIsAskedAboutToo()
    {
        Program program;
        program.store.updateProjectName(u"Changed"_s);
        Program::askedToEnd();
        program.letNothingBeKept();
        QTest::ignoreMessage(QtInfoMsg, "Quenara could not write its recovery journal.");
        Program::endSession();
        QCOMPARE(program.questions.asked.size(), 1);
    }

    void whereNothingIsUnsavedNothingWaitsForTheDisk()
    {
        const Program program;
        QCOMPARE(Program::askedToEnd(), 0);
    }
};

QUENARA_GUI_TEST(TestSessionEnd)

} // namespace tst_session_end

#include "tst_session_end.moc"
