#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "SessionEnd.h"
#include "SessionRecorder.h"

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
    SessionRecorder recorder{store, folder.filePath(u"recovery"_s)};
    SessionEnd sessionEnd{store, operatorWindow, guard, recorder};

    Program()
    {
        panels.answer = fileUrl(u"Sunday.quenara"_s);
        store.saveProject();
        QCoreApplication::sendPostedEvents();
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

    void whereNothingIsUnsavedNothingWaitsForTheDisk()
    {
        const Program program;
        QCOMPARE(Program::askedToEnd(), 0);
    }
};

QUENARA_GUI_TEST(TestSessionEnd)

} // namespace tst_session_end

#include "tst_session_end.moc"
