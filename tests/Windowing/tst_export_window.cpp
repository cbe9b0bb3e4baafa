#include "ExportView.h"
#include "ExportWindow.h"
#include "GuiTestSupport.h"
#include "ProgramWindows.h"

#include <QDir>
#include <QPushButton>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_export_window {

namespace {

struct Program : ProgramWindows
{
    Program()
    {
        exports.present();
        showActive(exports);
    }

    /// Exports to a document of pages.
    void begin()
    {
        panels.answer = fileUrl(u"show.pdf"_s);
        QTest::mouseClick(&named<QPushButton>(exports, u"Export..."_s), Qt::LeftButton);
    }

    bool isExporting() const { return exports.findChild<ExportView *>()->isExporting(); }
    QStringList documents() const
    {
        return QDir(folder.path()).entryList({u"*.pdf*"_s}, QDir::Files | QDir::Hidden);
    }
};

} // namespace

class TestExportWindow : public GuiTest
{
    Q_OBJECT

private slots:
    void itLeavesTheOperatorWindowUsable()
    {
        const Program program;
        QVERIFY(!program.exports.isModal());
        QVERIFY(!QApplication::activeModalWidget());
    }

    void noChoiceHasTheKeyboardWhenItOpens()
    {
        const Program program;
        QVERIFY(qobject_cast<ExportView *>(QApplication::focusWidget()));
    }

    void theShowGoesOnWhileItIsExported()
    {
        Program program;
        program.begin();
        QVERIFY(program.isExporting());
        ProgramWindows::activate(program.operatorWindow);
        const qsizetype live = program.live();
        ProgramWindows::press(program.operatorWindow, Qt::Key_Right);
        QCOMPARE(program.live(), live + 1);
        QTRY_VERIFY(!program.isExporting());
        QCOMPARE(program.documents(), QStringList{u"show.pdf"_s});
    }

    void escapeCancelsTheExportAndClosesTheWindow()
    {
        Program program;
        program.begin();
        QTest::keyClick(&program.exports, Qt::Key_Escape);
        QVERIFY(!program.isExporting());
        QVERIFY(!program.exports.isVisible());
        QVERIFY(program.documents().isEmpty());
    }

    void closeClosesTheWindowAndItOpensAgain()
    {
        Program program;
        QTest::mouseClick(&named<QPushButton>(program.exports, u"Close"_s), Qt::LeftButton);
        QVERIFY(!program.exports.isVisible());
        program.exports.present();
        QVERIFY(program.exports.isVisible());
    }
};

QUENARA_GUI_TEST(TestExportWindow)

} // namespace tst_export_window

#include "tst_export_window.moc"
