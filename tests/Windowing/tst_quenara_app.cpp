#include "GuiTestSupport.h"
#include "QuenaraApp.h"

using namespace quenara;
using namespace quenara::test;

namespace {

QColor windowColor()
{
    return QApplication::palette().color(QPalette::Window);
}

} // namespace

class TestQuenaraApp : public GuiTest
{
    Q_OBJECT

private slots:
    void theApplicationFollowsThePreferenceFromTheStartAndAsItChanges()
    {
        QApplication::setOrganizationName(QStringLiteral("Quenara"));
        QApplication::setApplicationName(QStringLiteral("Quenara"));
        QSettings().setValue(QStringLiteral("appAppearance"), QStringLiteral("dark"));
        QuenaraApp app{QPalette(Qt::white)};
        QCOMPARE(windowColor(), ZelvoTheme::dark().appBackground);
        app.appearance().setRawValue(QStringLiteral("light"));
        QCOMPARE(windowColor(), ZelvoTheme::light().appBackground);
        app.appearance().setRawValue(QStringLiteral("dark"));
        QCOMPARE(windowColor(), ZelvoTheme::dark().appBackground);
        app.appearance().setRawValue(QStringLiteral("none of the three"));
        QCOMPARE(windowColor(), ZelvoTheme::light().appBackground);
        QCOMPARE(QSettings().value(QStringLiteral("appAppearance")).toString(),
                 QStringLiteral("none of the three"));
    }
};

QUENARA_GUI_TEST_MAIN(TestQuenaraApp)
#include "tst_quenara_app.moc"
