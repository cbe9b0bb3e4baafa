#include "WalkThrough.h"

#include "Figures.h"
#include "ProcessMemory.h"
#include "QuenaraApp.h"
#include "RundownList.h"
#include "Settling.h"
#include "TextField.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace quenara::bench {

namespace {

/// Two screens, so that the audience's window lies beside the operator's.
constexpr const char *screens = R"({"screens": [
  {"name": "one", "x": 0, "y": 0, "width": 1920, "height": 1080,
   "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
  {"name": "two", "x": 1920, "y": 0, "width": 1920, "height": 1080,
   "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";

/// The program with all of its windows, worked by its commands, its list and its title field.
class RunningProgram
{
public:
    RunningProgram()
    {
        trigger("Open Display Window");
        trigger("Open Monitor Window");
        settle();
    }

    void open(const QString &path)
    {
        m_program.openDocument(path);
        settle();
    }

    void trigger(const char *title)
    {
        for (const QMenu *menu : window()->findChildren<QMenu *>()) {
            for (QAction *item : menu->actions()) {
                if (item->text() == QLatin1String(title)) {
                    item->trigger();
                    return settle();
                }
            }
        }
        qFatal("no command %s", title);
    }

    /// Clicks the row of the slide at \a number, 0-based, of the first section.
    void clickSlide(int number)
    {
        auto *list = window()->findChild<RundownList *>();
        const QPointF middle = list->visualRect(list->model()->index(number + 1, 0)).center();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, middle, list->viewport()->mapToGlobal(middle), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(list->viewport(), &event);
        }
        settle();
    }

    void typeTitle()
    {
        for (TextField *field : window()->findChildren<TextField *>()) {
            if (field->accessibleName() != QLatin1String("Title"))
                continue;
            QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
            QApplication::sendEvent(field, &key);
        }
        settle();
    }

private:
    static QWidget *window()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (qobject_cast<OperatorWindow *>(widget))
                return widget;
        }
        qFatal("no operator window");
    }

    QuenaraApp m_program{QPalette(Qt::black)};
};

} // namespace

WalkThrough walkThrough(const QString &path)
{
    const QTemporaryDir home;
    QFile arrangement(home.filePath(QStringLiteral("screens.json")));
    if (!arrangement.open(QIODevice::WriteOnly) || arrangement.write(screens) < 0)
        qFatal("cannot write %s", qPrintable(arrangement.fileName()));
    arrangement.close();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *folder : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME"})
        environment.insert(QString::fromLatin1(folder), home.path());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                       QStringLiteral("offscreen:configfile=") + arrangement.fileName());
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {QString::fromLatin1(walkThroughArgument), path});
    process.waitForFinished(-1);
    WalkThrough taken;
    if (std::sscanf(process.readAllStandardOutput().constData(), "%lf %lf %lf %lf", &taken.opening,
                    &taken.memory, &taken.slowestStep, &taken.letter)
        != 4)
        qFatal("no figures of %s", qPrintable(path));
    return taken;
}

void reportWalkThrough(const QString &path)
{
    RunningProgram program;
    const double before = memoryStatus("VmRSS:");
    Times opening;
    opening.measure([&] { program.open(path); });
    Times steps;
    const bool tells = qEnvironmentVariableIsSet("QUENARA_BENCH_STEPS");
    const auto step = [&](const char *name, const std::function<void()> &take) {
        Times one;
        one.measure(take);
        if (tells)
            std::fprintf(stderr, "%s: %.1f ms\n", name, one.best() / 1e6);
        steps.append(one);
    };
    for (int round = 0; round < 2; ++round) {
        for (const char *command : {"Queue Next", "Queue Previous", "Next Live Slide",
                                    "Previous Live Slide", "Toggle Blackout", "Toggle Blackout"})
            step(command, [&] { program.trigger(command); });
        step("a click on the second slide", [&] { program.clickSlide(1); });
        step("a click on the first slide", [&] { program.clickSlide(0); });
        step("Go Live", [&] { program.trigger("Go Live"); });
    }
    const double peak = memoryStatus("VmHWM:") - before;
    Times letter;
    letter.measure([&] { program.typeTitle(); });
    std::printf("%f %f %f %f\n", opening.best(), peak, steps.within(1), letter.best());
    std::fflush(stdout);
    std::_Exit(0); // unsaved work would be asked about
}

} // namespace quenara::bench
