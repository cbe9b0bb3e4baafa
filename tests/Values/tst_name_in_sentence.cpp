#include "NameInSentence.h"
#include "TestMain.h"

#include <QTest>

using namespace quenara;
using namespace Qt::StringLiterals;

namespace tst_name_in_sentence {

class TestNameInSentence : public QObject
{
    Q_OBJECT

private slots:
    void aNameCannotChangeTheWordsAroundIt_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        QTest::newRow("an ordinary name")
            << u"Sunday, 9 \u2013 \"early\" <b>"_s << u"Sunday, 9 \u2013 \"early\" <b>"_s;
        QTest::newRow("nothing") << QString() << QString();
        QTest::newRow("lines") << u"One\nTwo\r\n\u2028Three\tFour\u2029\u0085"_s
                               << u"One Two   Three Four  "_s;
        QTest::newRow("a null character") << u"a\0b"_s << u"a b"_s;
        QTest::newRow("overrides")
            << u"evil\u202egpj.exe\u202c and \u202dmore"_s << u"evilgpj.exe and more"_s;
        QTest::newRow("embeddings") << u"\u202aa\u202bb"_s << u"ab"_s;
        QTest::newRow("isolates that are not closed") << u"\u2066a\u2067b\u2068c"_s << u"abc"_s;
        QTest::newRow("the end of an isolate around it") << u"a\u2069\u2069b"_s << u"ab"_s;
        QTest::newRow("a name from right to left")
            << u"\u05d0\u05d1 1"_s << u"\u2068\u05d0\u05d1 1\u2069"_s;
        QTest::newRow("a name from right to left beyond the first plane")
            << u"\U0001E900\U00010D00"_s << u"\u2068\U0001E900\U00010D00\u2069"_s;
        QTest::newRow("an emoji of several")
            << u"\U0001F468\u200d\U0001F469"_s << u"\U0001F468\u200d\U0001F469"_s;
        QTest::newRow("a long one") << QString(100'000, u'x') << QString(199, u'x') + u'\u2026';
    }

    void aNameCannotChangeTheWordsAroundIt()
    {
        QFETCH(QString, name);
        QFETCH(QString, shown);
        QCOMPARE(nameInSentence(name), shown);
    }
};

QUENARA_TEST(TestNameInSentence)

} // namespace tst_name_in_sentence

#include "tst_name_in_sentence.moc"
