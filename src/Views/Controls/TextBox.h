#pragma once

#include <QPlainTextEdit>

namespace quenara {

/// Several lines of plain text. The Tab key moves on to the next control. Moving here by it selects
/// all of the text, as in fields of one line.
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
