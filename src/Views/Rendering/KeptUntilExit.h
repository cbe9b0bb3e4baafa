#pragma once

#include <QCoreApplication>

#include <optional>

namespace quenara {

/// The one value of a type that is kept for all that paint, and dropped when the application ends:
/// fonts must not outlive it. For the thread of the windows only.
template<class Kept>
Kept &keptUntilExit()
{
    static std::optional<Kept> kept;
    [[maybe_unused]] static const bool isDropped = (qAddPostRoutine([] { kept.reset(); }), true);
    return kept ? *kept : kept.emplace();
}

} // namespace quenara
