#include "QuenaraApp.h"

#include "Fonts.h"
#include "ZelvoImageLoader.h"

#include <QApplication>
#include <QIcon>
#include <QStyleFactory>

#include <csignal>

int main(int argc, char *argv[])
{
#ifdef SIGXFSZ
    // A file beyond what the system allows is a failed save, and no reason to end.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Quenara"));
    QApplication::setApplicationName(QStringLiteral("Quenara"));
    QApplication::setApplicationVersion(QStringLiteral(QUENARA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("quenara"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/application/quenara.svg")));
    // One style on every desktop, so that the style sheet meets what it was drawn for.
    const QPalette platformPalette = QGuiApplication::palette();
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    quenara::loadBundledFonts();
    quenara::ZelvoImageLoader::limitMemory();
    QApplication::setFont(quenara::systemFont(13, QFont::Normal));

    quenara::QuenaraApp app(platformPalette);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1) {
        app.openDocument(arguments.at(1));
    } else {
        app.showStartPanel();
    }
    return QApplication::exec();
}
