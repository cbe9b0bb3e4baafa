#pragma once

#include "SlideDesignModels.h"
#include "TextBlock.h"

#include <QLabel>

#include <memory>

namespace quenara {

struct RenderCaches;

/// A large text at the top of the room it is given, wrapped, shrunk to fit, then truncated. For the
/// style sheet and for screen readers it is a plain-text label with the whole text.
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

    FittedText(const Setting &setting, RenderCaches &caches, QWidget *parent = nullptr);

    /// Has the text be that many times as large as its setting says.
    void setScale(double scale);

    /// The points that are left free above the first line, for accents that reach beyond it.
    int headroom() const;

    /// Repaints only where the letters were and will be.
    void setText(const QString &text);

    QSize sizeHint() const override { return {0, 0}; }
    QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::shared_ptr<TextBlock> block() const;
    QRect inkRect() const;

    Setting m_setting;
    double m_scale = 1;
    RenderCaches &m_caches;
};

} // namespace quenara
