#pragma once

#include <QString>

namespace quenara {

/// The program's folder in the user's one for state: `$XDG_STATE_HOME`, else `~/.local/state`, or
/// what the platform has in its place. It need not be there.
[[nodiscard]] QString stateFolder();

} // namespace quenara
