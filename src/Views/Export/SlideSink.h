#pragma once

#include <QString>

namespace quenara {

struct FlattenedSlide;
struct RenderCaches;

/// Where the slides of a show are exported to, one after the other. Nothing is to be seen of it
/// before it is finished, and what is destroyed unfinished leaves nothing behind.
class SlideSink
{
public:
    SlideSink() = default;
    virtual ~SlideSink() = default;
    SlideSink(const SlideSink &) = delete;
    SlideSink &operator=(const SlideSink &) = delete;

    // Those that return false leave the reason in fault() and are the last to be called.

    [[nodiscard]] virtual bool open() = 0;
    virtual void paint(const FlattenedSlide &slide, RenderCaches &caches) = 0;
    /// Writes the slide that was painted last, or as much of it as takes no longer than painting.
    [[nodiscard]] virtual bool write() = 0;
    /// Whether a part of that slide is still to be written.
    [[nodiscard]] virtual bool hasMore() const { return false; }
    [[nodiscard]] virtual bool finish() = 0;

    /// The system's words.
    [[nodiscard]] virtual QString fault() const = 0;
    /// The file or folder that finish() has made, or that was to be made.
    [[nodiscard]] virtual QString path() const = 0;
};

} // namespace quenara
