#include "FittedText.h"

#include "Fonts.h"
#include "RenderCaches.h"
#include "SlideFonts.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>

namespace quenara {

namespace {

constexpr int usualHeadroom = 4;
constexpr double roundingRoom = 2; // points that letters may be moved to stand on whole rows
constexpr double spareRoom = 1.5; // factor for faces whose lines are higher than the system font's

} // namespace

FittedText::FittedText(const Setting &setting, RenderCaches &caches, QWidget *parent)
    : QLabel(parent), m_setting(setting), m_caches(caches)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setScale(1);
}

void FittedText::setScale(double scale)
{
    m_scale = scale;
    // No higher than the most lines need, so that less has to be repainted.
    const QFontMetricsF metrics(systemFont(m_setting.size * scale, fontWeight(m_setting.weight)));
    setMaximumHeight(headroom()
                     + qCeil(m_setting.limits.lineMaximum * metrics.lineSpacing() * spareRoom));
    update();
}

int FittedText::headroom() const
{
    return qRound(usualHeadroom * m_scale);
}

std::shared_ptr<TextBlock> FittedText::block() const
{
    const TextElementProperties properties{
        .text = text(),
        .fontFamily = systemFontFamily(),
        .fontSize = m_setting.size * m_scale,
        .weight = m_setting.weight,
        .textColor = {},
        .alignment = text().isRightToLeft() ? TextAlignmentValue::right : TextAlignmentValue::left,
        .shadow = {},
        .outline = {},
        .backgroundFill = {}};
    return m_caches.textBlocks.block(properties, size() - QSize(0, headroom()), m_setting.limits);
}

QRect FittedText::inkRect() const
{
    const std::shared_ptr<TextBlock> text = block();
    return text->inkBounds(m_caches)
        .translated(0, headroom() - text->bounds().top())
        .marginsAdded({roundingRoom, roundingRoom, roundingRoom, roundingRoom})
        .toAlignedRect();
}

void FittedText::setText(const QString &text)
{
    if (text == this->text())
        return;
    const QRect before = inkRect();
    const bool isHeldBack = testAttribute(Qt::WA_UpdatesDisabled);
    setAttribute(Qt::WA_UpdatesDisabled); // QLabel would repaint all of itself
    QLabel::setText(text);
    setAttribute(Qt::WA_UpdatesDisabled, isHeldBack);
    update(before | inkRect());
}

void FittedText::paintEvent(QPaintEvent * /*event*/)
{
    const std::shared_ptr<TextBlock> text = block();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing); // Qt fills the outlines of large letters
    painter.setPen(palette().color(foregroundRole()));
    painter.translate(0, headroom() - text->bounds().top());
    text->draw(painter, m_caches);
}

} // namespace quenara
