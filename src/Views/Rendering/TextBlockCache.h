#pragma once

#include "TextBlock.h"

#include <list>
#include <memory>

namespace quenara {

/// The texts that were laid out last. A slide is painted in many places and at many sizes, and its
/// lines break alike in all of them.
class TextBlockCache
{
public:
    /// \a text laid out in a box of \a size canvas units, which is the layer's box without its
    /// padding, within \a limits.
    std::shared_ptr<TextBlock> block(const TextElementProperties &text, const QSizeF &size,
                                     const TextLimits &limits = {});

private:
    struct Key
    {
        QSizeF size; ///< compares fuzzily: scaled to a window and back, it differs in its last bits
        TextElementProperties text;
        TextLimits limits;

        bool operator==(const Key &) const = default;
    };

    struct Entry
    {
        Key key;
        std::shared_ptr<TextBlock> block;
    };

    std::list<Entry> m_entries; ///< the most recently used first
};

} // namespace quenara
