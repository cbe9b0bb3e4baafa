#pragma once

#include <QPlainTextEdit>

namespace quenara {

/// Several lines of plain text. The Tab key moves on to the next control. Moving here by it selects
/// all of the text, as in fields of one line. What is selected while another control has the
/// keyboard is shown less brightly.
class TextBox : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TextBox(const QString &title, QWidget *parent = nullptr);

    /// Shows \a text as an example of what to write here, all of it selected, and again by the
    /// first click. While it is untouched, what is pasted or dropped replaces it, unless a part is
    /// selected.
    void showExample(const QString &text);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    void setTyping(bool isTyping);

    bool m_isExample = false; ///< whether the text is an untouched example
    bool m_awaitsClick = false; ///< whether it has not been clicked yet
};

} // namespace quenara
