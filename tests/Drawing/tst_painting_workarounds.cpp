#include "GuiTestSupport.h"
#include "PaintingWorkarounds.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <cpuid.h>
#include <immintrin.h>
#endif

using namespace quenara;
using namespace quenara::test;

namespace {

#if defined(__x86_64__) && defined(__GNUC__)

/// Whether the processor has such registers and tells whether they are in use.
bool canTell()
{
    constexpr unsigned stateLeaf = 0xd;
    constexpr unsigned tellsUse = 4;
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    unsigned d = 0;
    return __builtin_cpu_supports("avx2") && __get_cpuid_count(stateLeaf, 1, &a, &b, &c, &d)
        && (a & tellsUse) != 0;
}

/// Whether the upper halves of the vector registers are in use.
__attribute__((target("xsave"))) bool areUpperHalvesInUse()
{
    constexpr unsigned inUse = 1; // the register that lists what is in use
    constexpr unsigned long long upperHalves = 4;
    return (_xgetbv(inUse) & upperHalves) != 0;
}

#else

bool canTell()
{
    return false;
}

bool areUpperHalvesInUse()
{
    return false;
}

#endif

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
    void initTestCase()
    {
        if (!canTell())
            QSKIP("this processor has no such registers or does not tell");
    }

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

QUENARA_GUI_TEST_MAIN(TestPaintingWorkarounds)
#include "tst_painting_workarounds.moc"
