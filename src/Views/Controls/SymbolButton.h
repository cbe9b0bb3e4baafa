#pragma once

#include <QToolButton>

namespace quenara {

/// A button with a symbol in the theme's colours. Its title is its accessible name, and its tooltip
/// until it is given another. It takes the focus from the Tab key, not from a click, so that a
/// click leaves the keyboard to the show.
class SymbolButton : public QToolButton
{
    Q_OBJECT

public:
    enum class Look {
        icon, ///< the symbol alone, without a frame
        framed, ///< the symbol alone, in a frame
        labelled, ///< the title beside it, or alone where there is no symbol
        tile, ///< the title under it
        prominent, ///< the title beside it, large, on the colour of going live
    };

    /// \a symbol is a name in `resources/icons.list`, or empty.
    SymbolButton(const QString &symbol, const QString &title, Look look, QWidget *parent = nullptr);

    void setSymbol(const QString &symbol, const QString &title);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool showsTitle() const { return m_look > Look::framed; }
    int gap() const;
    QSize contentSize() const;
    QColor contentColor() const;

    QString m_symbol;
    Look m_look;
};

} // namespace quenara
