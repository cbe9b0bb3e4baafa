#include "Badge.h"
#include "GuiTestSupport.h"
#include "Pixels.h"

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_badge {

class TestBadge : public GuiTest
{
    Q_OBJECT

private slots:
    void aFilledBadgeHasWhiteWordsAndAnOutlinedOneHasThemInItsColour_data()
    {
        QTest::addColumn<bool>("isFilled");
        QTest::newRow("filled") << true;
        QTest::newRow("outlined") << false;
    }

    void aFilledBadgeHasWhiteWordsAndAnOutlinedOneHasThemInItsColour()
    {
        QFETCH(const bool, isFilled);
        const QColor color(20, 40, 160);
        const Badge badge{.text = u"LIVE"_s, .color = color, .pixelSize = 40, .isFilled = isFilled};
        QImage image(badge.size().toSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        badge.paint(painter, {0, 0});
        painter.end();
        QCOMPARE(pixelsOf(Qt::white, image) > 0, isFilled);
        QVERIFY(pixelsOf(color, image) > 0);
        QCOMPARE(image.pixelColor(image.width() / 2, 3).alpha() > 0, isFilled);
    }
};

QUENARA_GUI_TEST(TestBadge)

} // namespace tst_badge

#include "tst_badge.moc"
