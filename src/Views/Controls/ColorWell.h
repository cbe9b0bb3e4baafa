#pragma once

#include "RGBAColor.h"

#include <QAbstractButton>
#include <QPointer>

#include <optional>

class QColorDialog;

namespace quenara {

/// A colour that is chosen in the platform's dialog, alpha included. Shows what setColor() says and
/// tells of each colour that the operator tries there.
class ColorWell : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ColorWell(const QString &title, QWidget *parent = nullptr);

    const std::optional<RGBAColor> &color() const { return m_color; }
    /// No colour is an empty well, which opens no dialog.
    void setColor(const std::optional<RGBAColor> &color);

    /// Closes the dialog, leaving the colour as it has been tried.
    void endEditing();

    QSize sizeHint() const override;

signals:
    void edited(const quenara::RGBAColor &color);
    void editingFinished();
    void editingCancelled();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void openDialog();

    std::optional<RGBAColor> m_color;
    QPointer<QColorDialog> m_dialog;
};

} // namespace quenara
