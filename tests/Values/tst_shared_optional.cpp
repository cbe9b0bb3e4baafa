#include "SharedOptional.h"
#include "TestMain.h"

#include <QString>
#include <QTest>

#include <optional>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_shared_optional {

namespace {

/// The address of what \a value holds.
const QString *placeOf(const SharedOptional<QString> &value)
{
    return &*value;
}

} // namespace

class TestSharedOptional : public QObject
{
    Q_OBJECT

private slots:
    void itIsEmptyUntilItIsGivenAValue()
    {
        SharedOptional<QString> value;
        QVERIFY(!value);
        QVERIFY(!value.has_value());
        QCOMPARE(value.value_or(u"otherwise"_s), u"otherwise"_s);
        value = u"one"_s;
        QVERIFY(value.has_value());
        QCOMPARE(*value, u"one"_s);
        QCOMPARE(value->size(), 3);
        QCOMPARE(value.value_or(u"otherwise"_s), u"one"_s);
        value.emplace(u"two"_s);
        QCOMPARE(*value, u"two"_s);
        value.reset();
        QVERIFY(!value);
    }

    void itTakesWhatAnOptionalHolds()
    {
        QCOMPARE(SharedOptional<QString>(std::optional(u"one"_s)), SharedOptional(u"one"_s));
        QVERIFY(!SharedOptional<QString>(std::optional<QString>()));
        SharedOptional value(u"one"_s);
        value = std::nullopt;
        QVERIFY(!value);
    }

    void copiesShareTheValueUntilOneIsChanged()
    {
        const SharedOptional first(u"one"_s);
        SharedOptional<QString> second = first;
        QVERIFY(second.isSharedWith(first));
        QCOMPARE(placeOf(second), placeOf(first));
        second->append(u'!');
        QVERIFY(!second.isSharedWith(first));
        QCOMPARE(*first, u"one"_s);
        QCOMPARE(*second, u"one!"_s);
        second = first;
        *second = u"two"_s;
        QCOMPARE(*first, u"one"_s);
        second = first;
        second.emplace(u"three"_s);
        QCOMPARE(*first, u"one"_s);
    }

    void equalIsWhatHoldsEqualValuesOrNone()
    {
        const SharedOptional one(u"one"_s);
        QVERIFY(one == one);
        QVERIFY(one == SharedOptional(u"one"_s));
        QVERIFY(one != SharedOptional(u"two"_s));
        QVERIFY(one != SharedOptional<QString>());
        QVERIFY(SharedOptional<QString>() != one);
        QVERIFY(SharedOptional<QString>() == SharedOptional<QString>());
    }
};

QUENARA_TEST(TestSharedOptional)

} // namespace tst_shared_optional

#include "tst_shared_optional.moc"
