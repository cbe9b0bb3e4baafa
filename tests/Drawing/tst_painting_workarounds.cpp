#include "GuiTestSupport.h"
#include "PaintingWorkarounds.h"

#include <immintrin.h>

using namespace quenara;
using namespace quenara::test;

namespace tst_painting_workarounds {

namespace {

/// Whether the upper halves of the vector registers are in use.
__attribute__((target("xsave"))) bool areUpperHalvesInUse()
{
    constexpr unsigned inUse = 1; // the register that lists what is in use
    constexpr unsigned long long upperHalves = 4;
    return (_xgetbv(inUse) & upperHalves) != 0;
}

void fillWithOneColour()
{
    QImage image(64, 64, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(image.rect(), Qt::darkGreen);
}

} // namespace

class TestPaintingWorkarounds : public GuiTest
{
    Q_OBJECT

private slots:
    /// When this fails, releaseVectorRegisters() can go.
    void qtLeavesVectorRegistersInUse()
    {
        releaseVectorRegisters();
        QVERIFY(!areUpperHalvesInUse());
        fillWithOneColour();
        QVERIFY(areUpperHalvesInUse());
    }

    void vectorRegistersAreReleased()
    {
        fillWithOneColour();
        releaseVectorRegisters();
        QVERIFY(!areUpperHalvesInUse());
    }
};

QUENARA_GUI_TEST(TestPaintingWorkarounds)

} // namespace tst_painting_workarounds

#include "tst_painting_workarounds.moc"
