#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace quenara {

/// The hour of \a time as \a locale writes it, with AM or PM if it has them, its minutes and
/// seconds.
[[nodiscard]] QString clockText(const QTime &time, const QLocale &locale);

/// Shows the time of day in the widget's locale. While visible it changes with each second of the
/// wall clock. Its width is the same all day, and digits keep their places.
class ClockView : public QWidget
{
    Q_OBJECT

public:
    using Now = std::function<QDateTime()>;

    explicit ClockView(Now now, QWidget *parent = nullptr);

    QString text() const { return m_text; }

    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void tick();
    void showTime(const QTime &time);

    Now m_now;
    QString m_text;
    QTimer m_timer{this};
};

} // namespace quenara
