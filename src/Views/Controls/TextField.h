#pragma once

#include <QLineEdit>

namespace quenara {

/// One line of text. Return and Escape leave it.
class TextField : public QLineEdit
{
    Q_OBJECT

public:
    explicit TextField(const QString &title, QWidget *parent = nullptr);

    /// Caret and selection stay where they are as far as \a text reaches.
    void showText(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    /// A long text is read from its beginning again.
    void focusOutEvent(QFocusEvent *event) override;
};

} // namespace quenara
