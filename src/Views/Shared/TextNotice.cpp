#include "TextNotice.h"

#include "LowerThirdElementRenderView.h"
#include "RenderCaches.h"
#include "ShortenedText.h"
#include "SlideDesignModels.h"
#include "SlideDesignRenderView.h"

#include <QStringList>

#include <algorithm>

namespace quenara {

namespace {

/// What a layer shows of its texts.
struct Shown
{
    bool isCut = false;
    bool lacksLetters = false;
};

Shown shown(TextBlock &text)
{
    return {text.isCut(), text.lacksLetters()};
}

/// Its letters are cut by the layer's edges, too.
Shown shown(const LowerThirdElementRenderView &lowerThird, const QSizeF &size, RenderCaches &caches)
{
    Shown all;
    for (const auto &[position, text] : lowerThird.lines(size, caches)) {
        const Shown line = shown(*text);
        const QRectF letters = text->letterBounds(caches).translated(position);
        const bool isClipped =
            !letters.isEmpty() && (letters.top() < 0 || letters.bottom() > size.height());
        all.isCut = all.isCut || line.isCut || isClipped;
        all.lacksLetters = all.lacksLetters || line.lacksLetters;
    }
    return all;
}

Shown shown(const SlideElement &layer, RenderCaches &caches)
{
    const QSizeF size(layer.frame.width, layer.frame.height);
    if (!layer.visible)
        return {};
    if (layer.kind == SlideElementKind::lowerThird && layer.lowerThird)
        return shown(LowerThirdElementRenderView{layer.lowerThird, 1}, size, caches);
    if (!isText(layer.kind) || !layer.text)
        return {};
    const double padding = 2 * layer.text->padding;
    return shown(*caches.textBlocks.block(*layer.text, size - QSizeF(padding, padding)));
}

/// Layers of which one thing is to be said.
struct Told
{
    QStringList names;
    QString one; ///< is said of a single one, %1 being its name
    QString several; ///< is said of more

    [[nodiscard]] QString sentence() const
    {
        return (names.size() == 1 ? one : several)
            .arg(names.join(QStringLiteral("\u201d, \u201c")));
    }
};

} // namespace

QString textNotice(const SlideDesign &design, RenderCaches &caches)
{
    constexpr qsizetype longestName = 200;
    const QString boxed =
        QStringLiteral("No font on this computer has all letters of \u201c%1\u201d.");
    Told cut{{},
             QStringLiteral("The text of \u201c%1\u201d does not fit and is cut."),
             QStringLiteral("The texts of \u201c%1\u201d do not fit and are cut.")};
    Told lacking{{}, boxed, boxed};
    const qsizetype count = std::min(design.elements.size(), mostPaintedLayers);
    for (qsizetype i = 0; i < count; ++i) {
        const SlideElement &layer = design.elements.at(i);
        const auto [isCut, lacksLetters] = shown(layer, caches);
        if (isCut)
            cut.names.append(shortened(layer.name, longestName));
        if (lacksLetters)
            lacking.names.append(shortened(layer.name, longestName));
    }
    QStringList sentences;
    for (const Told &told : {cut, lacking}) {
        if (!told.names.isEmpty())
            sentences.append(told.sentence());
    }
    return sentences.join(QLatin1Char('\n'));
}

} // namespace quenara
