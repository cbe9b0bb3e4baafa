#pragma once

#include "InterfaceStyle.h"
#include "RenderCaches.h"
#include "StageOutputView.h"
#include "TestSupport.h"

#include <QApplication>
#include <QLabel>

namespace quenara::test {

/// A stage monitor on a world of its own, by a clock that is told the time.
struct StageMonitor
{
    World world;
    QDateTime now{QDate(2026, 3, 1), QTime(10, 32, 7)};
    RenderCaches caches;
    StageOutputView view{world.store, caches, [this] { return now; }};

    StageMonitor() { setUp(); }
    explicit StageMonitor(const ZelvoProject &project) : world(project) { setUp(); }

    /// For the whole application.
    static void setTheme(const ZelvoTheme &theme) { applyTheme(theme); }

    template<class Part = QLabel>
    Part *part(const char *name, const Caller &caller = Caller::current()) const
    {
        auto *found = view.findChild<Part *>(QString::fromLatin1(name));
        if (!found)
            fail(QStringLiteral("the stage monitor has no ") + QString::fromLatin1(name), caller);
        return found;
    }

    QString text(const char *name, const Caller &caller = Caller::current()) const
    {
        return part(name, caller)->text();
    }

    /// Gives every part its place, as showing would.
    void layOut() { view.grab(QRect(0, 0, 1, 1)); }

    QImage image() { return view.grab().toImage().convertToFormat(QImage::Format_RGB32); }

private:
    void setUp()
    {
        view.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        setTheme(ZelvoTheme::dark());
        view.resize(1180, 720);
    }
};

} // namespace quenara::test
