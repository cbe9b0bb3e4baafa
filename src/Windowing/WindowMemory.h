#pragma once

#include "WindowPlace.h"

#include <QObject>
#include <QRect>
#include <QString>

#include <optional>

namespace quenara {

class OperatorWindow;

/// Opens the operator's window where it was when it was last closed, on the same screen if that is
/// there, and on the primary one else; always wholly in sight. What it keeps for that is state, not
/// a preference: it is stored in a file of its own, and only once the window has been moved or
/// resized. Where a point is no whole number of pixels, the desktop may tell of a place that is a
/// point beside the one that was asked for: stored at each end, the place would creep.
class WindowMemory : public QObject
{
public:
    /// Puts \a window, which is not shown yet, in its place. A \a file that is missing or damaged
    /// counts as none. Keeps a reference to the window.
    WindowMemory(OperatorWindow &window, const QString &file);

    /// The file in the stateFolder().
    [[nodiscard]] static QString standardFile();

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void restore();
    void store() const;
    WindowPlace place() const;

    OperatorWindow &m_window;
    QString m_file;
    std::optional<WindowPlace> m_restored; ///< as it was asked for, on the screen that is there
    QRect m_untouched; ///< the window's geometry when it was put there
};

} // namespace quenara
