#include "GuiTestSupport.h"
#include "RecoverySheet.h"

#include <QLocale>
#include <QPushButton>
#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_recovery_sheet {

namespace {

const QDateTime sundayMorning(QDate(2026, 3, 1), QTime(9, 30));

LeftOverWork unsavedWork()
{
    return {.projectName = u"Sunday <b>Service</b>"_s,
            .file = u"/srv/Sunday.quenara"_s,
            .time = sundayMorning,
            .hasUnsavedChanges = true};
}

LeftOverWork savedWork(const QString &name)
{
    return {.projectName = name, .file = u"/srv/Other.quenara"_s, .time = sundayMorning};
}

QPushButton &row(const RecoverySheet &sheet, const QString &name)
{
    return named<QPushButton>(sheet, name);
}

} // namespace

class TestRecoverySheet : public GuiTest
{
    Q_OBJECT

private slots:
    void itTellsTheNameTheFileAndTheTime()
    {
        const RecoverySheet sheet({unsavedWork()}, nullptr);
        const QStringList texts = labelTexts(sheet);
        QCOMPARE(texts.first(), u"Quenara ended unexpectedly"_s);
        const QString time = QLocale().toString(sundayMorning, QLocale::ShortFormat);
        QVERIFY(texts.contains(u"Sunday <b>Service</b>"_s));
        QVERIFY(texts.contains(u"/srv/Sunday.quenara"_s));
        QVERIFY(texts.contains(time + u", with unsaved changes"_s));
        QCOMPARE(row(sheet, u"Sunday <b>Service</b>"_s).accessibleDescription(),
                 u"/srv/Sunday.quenara, "_s + time + u", with unsaved changes"_s);
    }

    void whatHasNoNameAndNoFileIsToldInWords()
    {
        const RecoverySheet sheet({{.projectName = {}, .file = {}, .time = sundayMorning}},
                                  nullptr);
        QVERIFY(labelTexts(sheet).contains(u"Untitled"_s));
        QVERIFY(labelTexts(sheet).contains(u"Not saved to a file yet"_s));
        QVERIFY(
            labelTexts(sheet).contains(QLocale().toString(sundayMorning, QLocale::ShortFormat)));
    }

    void theFirstIsChosenUntilAnotherIs()
    {
        RecoverySheet sheet({unsavedWork(), savedWork(u"B"_s), savedWork(u"C"_s)}, nullptr);
        showActive(sheet);
        const QSignalSpy continued(&sheet, &RecoverySheet::continued);
        const QSignalSpy discarded(&sheet, &RecoverySheet::discarded);
        press(sheet, u"Continue"_s);
        QCOMPARE(continued.last().first().value<qsizetype>(), 0);
        QTest::mouseClick(&row(sheet, u"C"_s), Qt::LeftButton);
        QVERIFY(!row(sheet, u"Sunday <b>Service</b>"_s).isChecked());
        press(sheet, u"Discard"_s);
        QCOMPARE(discarded.last().first().value<qsizetype>(), 2);
        press(sheet, u"Continue"_s);
        QCOMPARE(continued.last().first().value<qsizetype>(), 2);
        QVERIFY(sheet.isVisible());
    }

    void whatIsGoneIsOfferedNoMore()
    {
        RecoverySheet sheet({unsavedWork(), savedWork(u"B"_s), savedWork(u"C"_s)}, nullptr);
        showActive(sheet);
        QTest::mouseClick(&row(sheet, u"C"_s), Qt::LeftButton);
        sheet.setWorks({savedWork(u"B"_s), savedWork(u"C"_s)});
        QVERIFY(!labelTexts(sheet).contains(u"/srv/Sunday.quenara"_s));
        QVERIFY(row(sheet, u"B"_s).isChecked());
        const QSignalSpy continued(&sheet, &RecoverySheet::continued);
        press(sheet, u"Continue"_s);
        QCOMPARE(continued.last().first().value<qsizetype>(), 0);
    }

    void returnContinuesAndEscapeLeaves()
    {
        RecoverySheet sheet({unsavedWork()}, nullptr);
        showActive(sheet);
        const QSignalSpy continued(&sheet, &RecoverySheet::continued);
        const QSignalSpy discarded(&sheet, &RecoverySheet::discarded);
        QTest::keyClick(&sheet, Qt::Key_Return);
        QCOMPARE(continued.size(), 1);
        QTest::keyClick(&sheet, Qt::Key_Escape);
        QVERIFY(!sheet.isVisible());
        QCOMPARE(discarded.size(), 0);
    }
};

QUENARA_GUI_TEST(TestRecoverySheet)

} // namespace tst_recovery_sheet

#include "tst_recovery_sheet.moc"
