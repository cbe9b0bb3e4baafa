#pragma once

class QLineEdit;
class QObject;
class QWidget;

namespace quenara {

/// Whether keys that reach \a receiver are typed into a text there.
[[nodiscard]] bool takesText(const QObject *receiver);

/// Ends the typing into \a field: it takes what was typed, and the keyboard goes to the nearest
/// widget around it that takes the focus from a click. There, keys are the show's, but for Tab,
/// which goes on from the field. If the focus were only cleared, it would go to the first field
/// when the window becomes active again.
void leaveField(QWidget &field);

/// Ends the typing into the field that has the focus, if that is one that holds back what is typed
/// until it is left.
void endTyping();

/// Has such a field take what was typed. It keeps the keyboard, its caret and its selection.
void takeTyping();

/// Has \a field take what was written into it while it had not the keyboard.
void takeTyping(QLineEdit &field);

} // namespace quenara
