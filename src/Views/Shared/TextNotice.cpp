#include "TextNotice.h"

#include "LowerThirdElementRenderView.h"
#include "RenderCaches.h"
#include "ShortenedText.h"
#include "SlideDesignModels.h"
#include "SlideDesignRenderView.h"

#include <QStringList>

#include <algorithm>
#include <memory>

namespace quenara {

namespace {

/// The texts that \a layer shows.
QList<std::shared_ptr<TextBlock>> shownTexts(const SlideElement &layer, RenderCaches &caches)
{
    const QSizeF size(layer.frame.width, layer.frame.height);
    if (!layer.visible)
        return {};
    if (layer.kind == SlideElementKind::lowerThird && layer.lowerThird) {
        const auto [title, subtitle] =
            LowerThirdElementRenderView{layer.lowerThird, 1}.lines(size, caches);
        return {title.block, subtitle.block};
    }
    if (!isText(layer.kind) || !layer.text)
        return {};
    const double padding = 2 * layer.text->padding;
    return {caches.textBlocks.block(*layer.text, size - QSizeF(padding, padding))};
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
        const QList<std::shared_ptr<TextBlock>> texts = shownTexts(layer, caches);
        if (std::any_of(texts.begin(), texts.end(), [](auto &text) { return text->isCut(); }))
            cut.names.append(shortened(layer.name, longestName));
        if (std::any_of(texts.begin(), texts.end(),
                        [](auto &text) { return text->lacksLetters(); }))
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
