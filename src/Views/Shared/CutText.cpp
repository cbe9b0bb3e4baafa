#include "CutText.h"

#include "RenderCaches.h"
#include "ShortenedText.h"
#include "SlideDesignModels.h"
#include "SlideDesignRenderView.h"

#include <algorithm>

namespace quenara {

namespace {

bool isCut(const SlideElement &layer, RenderCaches &caches)
{
    if (!layer.visible || !isText(layer.kind) || !layer.text)
        return false;
    const double padding = 2 * layer.text->padding;
    return caches.textBlocks
        .block(*layer.text, {layer.frame.width - padding, layer.frame.height - padding})
        ->isCut();
}

} // namespace

QStringList layersWithCutText(const SlideDesign &design, RenderCaches &caches)
{
    constexpr qsizetype longestName = 200;
    QStringList names;
    const qsizetype count = std::min(design.elements.size(), mostPaintedLayers);
    for (qsizetype i = 0; i < count; ++i) {
        const SlideElement &layer = design.elements.at(i);
        if (isCut(layer, caches))
            names.append(shortened(layer.name, longestName));
    }
    return names;
}

QString cutTextNotice(const QStringList &layers)
{
    if (layers.isEmpty())
        return {};
    const QString names = layers.join(QStringLiteral("\u201d, \u201c"));
    return layers.size() == 1
        ? QStringLiteral("The text of \u201c%1\u201d does not fit and is cut.").arg(names)
        : QStringLiteral("The texts of \u201c%1\u201d do not fit and are cut.").arg(names);
}

} // namespace quenara
