#pragma once

#include "SlideDesignModels.h"
#include "TextBlock.h"

#include <QLabel>

#include <optional>

namespace quenara {

/// A large text at the top of the room it is given: wrapped, shrunk to fit, then cut. To the style
/// sheet and to screen readers a plain-text label with the whole text.
class FittedText : public QLabel
{
    Q_OBJECT

public:
    struct Setting
    {
        double size; ///< points, before it is shrunk
        TextFontWeight weight;
        TextLimits limits;
    };

    /// What is left free above the first line, for accents that reach beyond it; points.
    static constexpr int headroom = 4;

    explicit FittedText(const Setting &setting, QWidget *parent = nullptr);

    /// Paints no more than where the letters were and will be.
    void setText(const QString &text);

    QSize sizeHint() const override { return {0, 0}; }
    QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    TextBlock &block();
    QRect inkRect();

    Setting m_setting;
    TextElementProperties m_properties; ///< what m_block was laid out from
    QSize m_room; ///< likewise
    std::optional<TextBlock> m_block;
};

} // namespace quenara
