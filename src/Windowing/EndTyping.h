#pragma once

namespace quenara {

/// What is still being typed into a field becomes part of the document.
void endTyping();

} // namespace quenara
