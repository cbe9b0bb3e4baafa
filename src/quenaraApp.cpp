#include "QuenaraApp.h"

#include "AccessibleControls.h"
#include "InterfaceStyle.h"
#include "TerminationSignals.h"
#include "ZelvoImageLoader.h"

#include <QApplication>
#include <QIcon>

#include <csignal>

int main(int argc, char *argv[])
{
#ifdef SIGXFSZ
    // Writing a larger file than the system allows is to fail, not to end the program.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Quenara"));
    QApplication::setApplicationName(QStringLiteral("Quenara"));
    QApplication::setApplicationVersion(QStringLiteral(QUENARA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("quenara"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/application/quenara.svg")));
    const QPalette platformPalette = QGuiApplication::palette(); // before the style has its own
    quenara::setUpInterface();
    quenara::makeControlsAccessible();
    quenara::ZelvoImageLoader::limitMemory();

    quenara::QuenaraApp app(platformPalette);
    const quenara::TerminationSignals terminationSignals;
    QObject::connect(&terminationSignals, &quenara::TerminationSignals::received, qApp,
                     [&app] { app.endWithoutAsking(); });
    app.start(QApplication::arguments().value(1));
    return QApplication::exec();
}
