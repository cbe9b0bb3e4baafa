#include "FileNames.h"
#include "TestMain.h"

#include <QTest>

using namespace quenara;
using namespace Qt::StringLiterals;

namespace tst_file_names {

class TestFileNames : public QObject
{
    Q_OBJECT

private slots:
    void aPartOfANameIsTakenByEverySystem_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("part");
        QTest::newRow("of plain words") << u"Evening Hymn"_s << u"Evening Hymn"_s;
        QTest::newRow("of another script") << u"אור 🕯"_s << u"אור 🕯"_s;
        QTest::newRow("with separators") << u"a/b\\c"_s << u"a-b-c"_s;
        QTest::newRow("with signs of other systems")
            << u"What? <now>: *|\""_s << u"What- -now- -"_s;
        QTest::newRow("with lines") << u"one\ntwo\tthree"_s << u"one two three"_s;
        QTest::newRow("of the folder above") << u".."_s << QString();
        QTest::newRow("hidden") << u" .secret. "_s << u"secret"_s;
        QTest::newRow("of nothing") << QString() << QString();
    }

    void aPartOfANameIsTakenByEverySystem()
    {
        QFETCH(QString, text);
        QTEST(portableName(text), "part");
    }

    void aLongPartIsItsBeginning()
    {
        const QString part = portableName(QString(5000, u'a'));
        QVERIFY(part.size() <= 60);
        QVERIFY(part.startsWith(u"aaa"_s));
    }
};

QUENARA_TEST(TestFileNames)

} // namespace tst_file_names

#include "tst_file_names.moc"
