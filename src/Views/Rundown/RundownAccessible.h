#pragma once

namespace quenara {

/// Has assistive technologies meet a RundownList as a list of items that can be selected.
void makeRundownAccessible();

} // namespace quenara
