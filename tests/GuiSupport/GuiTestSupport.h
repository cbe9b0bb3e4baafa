#pragma once

#include "InterfaceStyle.h"
#include "SlideRendererView.h"
#include "TestMain.h"
#include "Widgets.h"

#include <QApplication>
#include <QImage>
#include <QTest>

#include <memory>

namespace quenara::test {

/// A test that fails at every warning, except for those that the offscreen platform gives for each
/// menu and each window that is raised or has a minimum size.
class GuiTest : public QObject
{
    Q_OBJECT

public:
    ~GuiTest() override;

    /// The caches of the windows that are tested: one value until all tests have run, as in the
    /// program, which makes the second window of a test paint as fast as the program's does.
    static RenderCaches &caches();

private slots:
    void init();

private:
    static std::unique_ptr<RenderCaches> keptCaches; ///< made when they are first used
};

/// Sets the application up as the program does.
void setUpApplication();

/// Paints \a view with new caches.
void paintAnew(const SlideRendererView &view, QPainter &painter, const QRectF &area);

/// What \a view paints over magenta, which shows wherever it paints nothing. Uses new caches unless
/// it is given some.
QImage rendered(const SlideRendererView &view, const QSize &size, double devicePixelRatio = 1);
QImage rendered(const SlideRendererView &view, const QSize &size, double devicePixelRatio,
                RenderCaches &caches);

inline constexpr QRgb magenta = 0xffff00ff;

/// The largest difference of any channel of any pixel; 255 for images of different sizes.
int largestDifference(const QImage &a, const QImage &b);

/// The smallest rectangle around everything in \a image, of 32 bits a pixel, that is not black.
QRect inkOf(const QImage &image);

/// A design with \a background and no elements.
SlideDesign designOver(const SlideBackground &background);
Slide slideWith(const SlideDesign &design);

SlideBackground solidBackground(const RGBAColor &color);

/// A rectangle layer without stroke.
SlideElement rectangleLayer(const QString &id, const CanvasFrame &frame, const RGBAColor &fill,
                            int zIndex);

/// A PNG of one colour as media.
SlideMedia solidImage(const QSize &size, const QColor &color);

} // namespace quenara::test

/// A test that runs as the program runs.
#define QUENARA_GUI_TEST(TestClass)                                                                \
    static const quenara::test::NamedTest named##TestClass(__FILE__, [](int argc, char *argv[]) {  \
        QApplication application(argc, argv);                                                      \
        quenara::test::setUpApplication();                                                         \
        return quenara::test::runTest<TestClass>(argc, argv);                                      \
    });
