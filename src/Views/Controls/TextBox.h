#pragma once

#include <QPlainTextEdit>

namespace quenara {

/// Several lines of text. Selects all of it for whoever comes with the Tab key, as fields of one
/// line do. Tab leads on.
class TextBox : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TextBox(const QString &title, QWidget *parent = nullptr);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
};

} // namespace quenara
