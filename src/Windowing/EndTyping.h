#pragma once

class QWidget;

namespace quenara {

/// What is still being typed into a field becomes part of the document. Gives the field, which no
/// longer has the focus, or null.
QWidget *endTyping();

} // namespace quenara
