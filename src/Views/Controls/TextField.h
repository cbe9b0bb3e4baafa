#pragma once

#include <QLineEdit>

namespace quenara {

/// The characters that a field of one line holds at most, far more than a title has: what takes
/// them in takes the longer the more they are.
inline constexpr int longestLine = 100'000;

/// Shows \a text in \a field. Of one that is too long, it shows the beginning and lets nobody edit
/// that.
void showLine(QLineEdit &field, const QString &text);

/// One line of text. Return and Escape leave it.
class TextField : public QLineEdit
{
    Q_OBJECT

public:
    explicit TextField(const QString &title, QWidget *parent = nullptr);

    /// The caret and the selection stay where they are, as far as \a text reaches.
    void showText(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    /// Shows a long text from its beginning again.
    void focusOutEvent(QFocusEvent *event) override;
    /// Takes what is dropped at once while the keyboard is elsewhere: nobody would leave it.
    void dropEvent(QDropEvent *event) override;
};

} // namespace quenara
