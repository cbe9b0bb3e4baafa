#pragma once

#include <QObject>

#include <optional>

namespace quenara {

/// Tells when Escape is pressed in a window twice in a row and within a second, so that a key that
/// is brushed against does nothing. Any other key in between, in whatever window, starts afresh,
/// and so does a new window. What counts is when the keys went down, however late they arrive.
class EscapeTwice : public QObject
{
    Q_OBJECT

public:
    /// Belongs to \a window.
    explicit EscapeTwice(QWidget &window);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void pressed();

private:
    void press();

    /// When the last Escape went down, in milliseconds of the platform's clock.
    quint64 m_askedAt = 0;
    std::optional<quint64> m_first; ///< likewise of a press that waits for its second
};

} // namespace quenara
