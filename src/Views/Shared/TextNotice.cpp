#include "TextNotice.h"

#include "DevicePixels.h"
#include "Fonts.h"
#include "RenderCaches.h"
#include "ShortenedText.h"
#include "SlideDesignModels.h"
#include "SlideDesignRenderView.h"

#include <QStringList>

#include <algorithm>
#include <memory>

namespace quenara {

namespace {

/// Null for a layer that shows no text.
std::shared_ptr<TextBlock> shownText(const SlideElement &layer, RenderCaches &caches)
{
    if (layer.visible && layer.kind == SlideElementKind::lowerThird && layer.lowerThird) {
        TextElementProperties words;
        words.text = layer.lowerThird->title + QLatin1Char('\n') + layer.lowerThird->subtitle;
        words.fontFamily = systemFontFamily();
        words.fontSize = 1;
        return caches.textBlocks.block(words, reachableArea.size());
    }
    if (!layer.visible || !isText(layer.kind) || !layer.text)
        return nullptr;
    const double padding = 2 * layer.text->padding;
    return caches.textBlocks.block(*layer.text,
                                   {layer.frame.width - padding, layer.frame.height - padding});
}

/// Says \a one of a single layer, \a several of more, of which %1 are the names.
QString sentence(const QStringList &layers, const QString &one, const QString &several)
{
    const QString names = layers.join(QStringLiteral("\u201d, \u201c"));
    return layers.isEmpty() ? QString() : (layers.size() == 1 ? one : several).arg(names);
}

} // namespace

QString textNotice(const SlideDesign &design, RenderCaches &caches)
{
    constexpr qsizetype longestName = 200;
    QStringList cut;
    QStringList boxed;
    const qsizetype count = std::min(design.elements.size(), mostPaintedLayers);
    for (qsizetype i = 0; i < count; ++i) {
        const SlideElement &layer = design.elements.at(i);
        const std::shared_ptr<TextBlock> text = shownText(layer, caches);
        if (text && text->isCut())
            cut.append(shortened(layer.name, longestName));
        if (text && text->lacksLetters())
            boxed.append(shortened(layer.name, longestName));
    }
    QStringList sentences{
        sentence(cut, QStringLiteral("The text of \u201c%1\u201d does not fit and is cut."),
                 QStringLiteral("The texts of \u201c%1\u201d do not fit and are cut.")),
        sentence(boxed,
                 QStringLiteral("No font on this computer has all letters of \u201c%1\u201d."),
                 QStringLiteral("No font on this computer has all letters of \u201c%1\u201d."))};
    sentences.removeAll(QString());
    return sentences.join(QLatin1Char('\n'));
}

} // namespace quenara
