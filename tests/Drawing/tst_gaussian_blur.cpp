#include "GaussianBlur.h"
#include "TestMain.h"

#include <QTest>

#include <cmath>
#include <vector>

using namespace quenara;

namespace tst_gaussian_blur {

namespace {

constexpr int side = 160;

QImage square()
{
    QImage image(side, side, QImage::Format_Alpha8);
    image.fill(0);
    for (int y = 60; y < 100; ++y) {
        for (int x = 50; x < 110; ++x)
            image.scanLine(y)[x] = 255;
    }
    return image;
}

/// The share of a Gaussian of \a sigma around \a x that lies between two edges.
double share(double x, double from, double to, double sigma)
{
    const auto below = [&](double edge) {
        return 0.5 * (1 + std::erf((edge - x) / (sigma * std::sqrt(2.0))));
    };
    return below(to) - below(from);
}

} // namespace

class TestGaussianBlur : public QObject
{
    Q_OBJECT

private slots:
    void aBlurComesCloseToTheTrueGaussian_data()
    {
        QTest::addColumn<double>("sigma");
        for (const double sigma : {0.5, 0.75, 1.0, 1.5, 2.5, 4.5, 9.0, 18.0, 30.0})
            QTest::addRow("standard deviation %g", sigma) << sigma;
    }

    void aBlurComesCloseToTheTrueGaussian()
    {
        QFETCH(double, sigma);
        const QImage blurred = gaussianBlurred(square(), sigma);
        double sum = 0;
        int pixels = 0; // on which the blur has an effect
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const double expected =
                    255 * share(x + 0.5, 50, 110, sigma) * share(y + 0.5, 60, 100, sigma);
                if (expected > 1 && expected < 254) {
                    sum += std::abs(blurred.constScanLine(y)[x] - expected);
                    ++pixels;
                }
            }
        }
        constexpr double twoPercent = 255 * 0.02;
        QVERIFY(pixels > 0);
        QVERIFY(sum / pixels <= twoPercent);
    }

    void edgesFadeTowardsWhatLiesOutside()
    {
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        const QImage blurred = gaussianBlurred(image, 8);
        const double atTheEdge = 255 * share(0.5, 0, side, 8);
        QVERIFY(std::abs(qAlpha(blurred.pixel(0, side / 2)) - atTheEdge) < 8);
    }

    void anEvenImageStaysAsItIsAwayFromItsEdges_data()
    {
        QTest::addColumn<double>("sigma");
        for (const double sigma : {0.5, 1.0, 2.5, 4.5, 9.0, 18.0})
            QTest::addRow("standard deviation %g", sigma) << sigma;
    }

    void anEvenImageStaysAsItIsAwayFromItsEdges()
    {
        QFETCH(double, sigma);
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        for (const QRgb color : {qRgb(255, 255, 255), qRgb(201, 97, 3)}) {
            image.fill(color);
            QCOMPARE(gaussianBlurred(image, sigma).pixel(side / 2, side / 2), color);
        }
    }

    void aPlanReachesAsFarAsTheBlurIsSeen_data()
    {
        QTest::addColumn<double>("sigma");
        for (const double sigma : {0.5, 3.0, 8.0, 21.3, 90.0, 400.0})
            QTest::addRow("standard deviation %g", sigma) << sigma;
    }

    void aPlanReachesAsFarAsTheBlurIsSeen()
    {
        QFETCH(double, sigma);
        const BlurPlan plan(sigma);
        QCOMPARE(plan.sigma * plan.reduction, sigma);
        QVERIFY(plan.sigma < 8);
        // Beyond the reach, the blur of a straight edge is fainter than half a shade.
        constexpr double halfAShade = 0.5 / 255;
        QVERIFY(share(plan.reach, -1e9, 0, sigma) < halfAShade);
        QVERIFY(plan.reach < 3 * sigma + 1);
    }

    void aBlurOfNothingChangesNothing()
    {
        QCOMPARE(gaussianBlurred(square(), 0), square());
        QVERIFY(gaussianBlurred(QImage(), 9).isNull());
    }
};

QUENARA_TEST(TestGaussianBlur)

} // namespace tst_gaussian_blur

#include "tst_gaussian_blur.moc"
