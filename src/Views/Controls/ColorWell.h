#pragma once

#include "RGBAColor.h"

#include <QAbstractButton>
#include <QPointer>

#include <optional>

class QColorDialog;

namespace quenara {

/// A colour that is chosen, alpha included, in a dialog. Shows the colour that setColor() gives,
/// and emits edited() for each colour that the operator tries in the dialog.
class ColorWell : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ColorWell(const QString &title, QWidget *parent = nullptr);

    const std::optional<RGBAColor> &color() const { return m_color; }
    /// Without a colour the well is empty and opens no dialog.
    void setColor(const std::optional<RGBAColor> &color);

    /// Closes the dialog and keeps the colour that was tried last.
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
