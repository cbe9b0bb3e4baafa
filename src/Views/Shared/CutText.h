#pragma once

#include <QString>
#include <QStringList>

namespace quenara {

struct RenderCaches;
struct SlideDesign;

/// The names of the visible layers of \a design whose text ends in an ellipsis, since it does not
/// fit into its box even at its smallest size. In the design's order.
[[nodiscard]] QStringList layersWithCutText(const SlideDesign &design, RenderCaches &caches);

/// What the operator is told of the \a layers with those names; empty without any.
[[nodiscard]] QString cutTextNotice(const QStringList &layers);

/// The symbol that stands for the notice, a name in `resources/icons.list`.
inline constexpr const char *cutTextSymbol = "exclamationmark.triangle.fill";

} // namespace quenara
