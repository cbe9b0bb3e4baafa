#include "Identifier.h"
#include "TestMain.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <utility>

using namespace quenara;
using namespace quenara::test;

namespace tst_identifier {

class TestIdentifier : public QObject
{
    Q_OBJECT

private slots:
    void eachIsTheUpperCaseTextOfAnotherRandomUuid()
    {
        static const QRegularExpression canonical(QStringLiteral(
            "^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"));
        QSet<QString> made;
        for (int i = 0; i < 1000; ++i) {
            const QString identifier = newIdentifier();
            QVERIFY2(canonical.match(identifier).hasMatch(), qPrintable(identifier));
            QCOMPARE(identifier.utf16()[identifier.size()], 0);
            made.insert(identifier);
        }
        QCOMPARE(made.size(), 1000);
    }

    void aChangeOfOneLeavesTheOthersAsTheyAre()
    {
        QStringList identifiers;
        for (int i = 0; i < 200; ++i)
            identifiers.append(newIdentifier());
        QStringList texts;
        for (const QString &identifier : std::as_const(identifiers))
            texts.append(QString(identifier.constData(), identifier.size()));
        for (qsizetype i = 0; i < identifiers.size(); i += 2) {
            identifiers[i].append(QStringLiteral(" and much more than there was room for before"));
            identifiers[i][0] = QLatin1Char('?');
        }
        for (qsizetype i = 1; i < identifiers.size(); i += 2)
            QCOMPARE(identifiers.at(i), texts.at(i));
        identifiers.removeIf([](const QString &text) { return text.startsWith(u'?'); });
        QCOMPARE(identifiers.size(), 100);
        for (qsizetype i = 0; i < identifiers.size(); ++i)
            QCOMPARE(identifiers.at(i), texts.at(2 * i + 1));
    }
};

QUENARA_TEST(TestIdentifier)

} // namespace tst_identifier

#include "tst_identifier.moc"
