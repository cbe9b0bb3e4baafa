#include "WorkspaceState.h"

#include <QTest>

using namespace quenara;

class TestRawEnums : public QObject
{
    Q_OBJECT

private slots:
    void aRawStringThatDiffersInCaseIsNoServiceItemType()
    {
        QVERIFY(!fromRawValue<ServiceItemType>(QStringLiteral("Song")));
        QCOMPARE(fromRawValue<ServiceItemType>(QStringLiteral("song")), ServiceItemType::song);
    }
};

QTEST_APPLESS_MAIN(TestRawEnums)
#include "tst_raw_enums.moc"
