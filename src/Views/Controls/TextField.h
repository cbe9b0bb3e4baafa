#pragma once

#include <QLineEdit>

namespace quenara {

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
};

} // namespace quenara
