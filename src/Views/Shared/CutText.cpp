#include "CutText.h"

#include "RenderCaches.h"
#include "SlideDesignModels.h"

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
    QStringList names;
    for (const SlideElement &layer : design.elements) {
        if (isCut(layer, caches))
            names.append(layer.name);
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
