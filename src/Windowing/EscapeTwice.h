#pragma once

#include <QElapsedTimer>
#include <QObject>

namespace quenara {

/// Tells when Escape is pressed in a window twice in a row and within a second, so that a key that
/// is brushed against does nothing. Any other key in between, in whatever window, starts afresh,
/// and so does a new window.
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

    QElapsedTimer m_sinceFirst; ///< invalid unless a first press waits for its second
};

} // namespace quenara
