#include "KeptTextBlocks.h"

#include "KeptUntilExit.h"

#include <algorithm>
#include <list>

namespace quenara {

namespace {

/// More than the texts of the slides that all windows show at once, thumbnails included.
constexpr std::size_t blockMaximum = 64;

struct KeptBlock
{
    TextElementProperties text;
    QSizeF size;
    std::shared_ptr<TextBlock> block;
};

using KeptBlocks = std::list<KeptBlock>; ///< the most recently used first

} // namespace

std::shared_ptr<TextBlock> keptTextBlock(const TextElementProperties &text, const QSizeF &size)
{
    auto &blocks = keptUntilExit<KeptBlocks>();
    // QSizeF compares fuzzily: sizes that were scaled to a window and back differ in their last
    // digits.
    const auto found = std::find_if(blocks.begin(), blocks.end(), [&](const KeptBlock &kept) {
        return kept.size == size && kept.text == text;
    });
    if (found == blocks.end()) {
        blocks.push_front({text, size, std::make_shared<TextBlock>(text, size)});
        if (blocks.size() > blockMaximum)
            blocks.pop_back();
    } else {
        blocks.splice(blocks.begin(), blocks, found);
    }
    return blocks.front().block;
}

} // namespace quenara
