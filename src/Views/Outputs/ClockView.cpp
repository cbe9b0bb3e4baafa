#include "ClockView.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <QRegularExpression>
#include <QTextLayout>
#include <QtMath>

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

constexpr int secondLength = 1000; // ms

/// Formats that centre every digit in the width of the widest, so that no other letter moves when
/// the digits change.
QList<QTextLayout::FormatRange> tabularDigits(const QString &text, const QFontMetricsF &metrics,
                                              const QLocale &locale)
{
    double widest = 0;
    for (int digit = 0; digit <= 9; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(locale.toString(digit)));
    const auto roomBeside = [&](int index) {
        const bool isDigit = index < text.size() && text.at(index).isDigit();
        return isDigit ? (widest - metrics.horizontalAdvance(text.at(index))) / 2 : 0;
    };
    QList<QTextLayout::FormatRange> formats;
    for (int i = 0; i < text.size(); ++i) {
        QTextLayout::FormatRange range{i, 1, {}};
        range.format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
        range.format.setFontLetterSpacing(roomBeside(i) + roomBeside(i + 1));
        formats.append(range);
    }
    return formats;
}

/// Lays out \a text in one line at the origin.
void layOut(QTextLayout &layout, const QString &text, const QFont &font, const QLocale &locale)
{
    QFont unkerned = font;
    unkerned.setKerning(false);
    layout.setText(text);
    layout.setFont(unkerned);
    layout.setFormats(tabularDigits(text, QFontMetricsF(font), locale));
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
}

} // namespace

QString clockText(const QTime &time, const QLocale &locale)
{
    QString format = locale.timeFormat(QLocale::ShortFormat);
    // Qt does not know the letter for the part of the day by name.
    format.replace(QLatin1Char('B'), QStringLiteral("AP"));
    static const QRegularExpression hourAndMinutes(QStringLiteral("[Hh]+(.+?)m+(?!.*s)"));
    const QRegularExpressionMatch match = hourAndMinutes.match(format);
    if (match.hasMatch()) {
        const QString separator = match.captured(1);
        format.insert(match.capturedEnd(),
                      (separator.size() == 1 ? separator : QStringLiteral(":"))
                          + QStringLiteral("ss"));
    }
    // Newer data of the locales have a narrow space, which cannot be broken, before AM and PM.
    return locale.toString(time, format).replace(QChar(0x202f), QLatin1Char(' '));
}

ClockView::ClockView(Now now, QWidget *parent) : QWidget(parent), m_now(std::move(now))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ClockView::tick);
    showTime(m_now().time());
}

void ClockView::tick()
{
    const QTime time = m_now().time();
    showTime(time);
    m_timer.start(secondLength - time.msec());
}

void ClockView::showTime(const QTime &time)
{
    const QString text = clockText(time, locale());
    if (text == m_text)
        return;
    m_text = text;
    setAccessibleName(text);
    update();
}

QSize ClockView::sizeHint() const
{
    QSizeF size(0, fontMetrics().height());
    for (int hour = 0; hour < 24; ++hour) {
        QTextLayout layout;
        layOut(layout, clockText({hour, 0}, locale()), font(), locale());
        const QTextLine line = layout.lineAt(0);
        size = size.expandedTo({line.naturalTextWidth(), line.height()});
    }
    return {qCeil(size.width()), qCeil(size.height())};
}

void ClockView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LocaleChange) {
        showTime(m_now().time());
        updateGeometry();
    }
    QWidget::changeEvent(event);
}

void ClockView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    tick();
}

void ClockView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_timer.stop();
}

void ClockView::paintEvent(QPaintEvent * /*event*/)
{
    QTextLayout layout;
    layOut(layout, m_text, font(), locale());
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QTextLine line = layout.lineAt(0);
    layout.draw(&painter, {width() - line.naturalTextWidth(), (height() - line.height()) / 2});
}

} // namespace quenara
