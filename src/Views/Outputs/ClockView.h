#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace quenara {

/// \a time with its hour as \a locale writes it (AM or PM where it has them), minutes and seconds.
QString clockText(const QTime &time, const QLocale &locale);

/// The time of day in the widget's locale. Runs while it is shown, in step with the seconds of the
/// clock on the wall. Its width is the same all day, and digits keep their places.
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
