// Whatever a document says of a slide, painting it ends, and nothing in it is undefined.

#include "Fonts.h"
#include "RandomProject.h"
#include "RenderCaches.h"
#include "SlideRendererView.h"
#include "ZelvoImageLoader.h"

#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>

using namespace quenara;

// libFuzzer calls both by these names.
// NOLINTBEGIN(readability-identifier-naming)
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
// NOLINTEND(readability-identifier-naming)

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never deleted: what it would need is gone when the process ends.
    static const auto *application = new QGuiApplication(*argc, *argv);
    Q_ASSERT(application);
    loadBundledFonts();
    ZelvoImageLoader::limitMemory();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    std::span<const std::uint8_t> rest(data, size);
    Slide slide;
    slide.design = test::randomDesign([&rest] {
        std::uint64_t number = 0;
        const std::size_t taken = std::min(rest.size(), sizeof(number));
        std::memcpy(&number, rest.data(), taken);
        rest = rest.subspan(taken);
        return number;
    });
    SlideRendererView view{.slide = slide, .showSafeArea = true};
    if (!slide.design.elements.isEmpty())
        view.selectedElementID = slide.design.elements.constFirst().id;
    RenderCaches caches;
    QImage image(96, 54, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    view.paint(painter, image.rect(), caches);
    return 0;
}
