#include "GuiTestSupport.h"
#include "ProjectFileService.h"
#include "ProjectTemplates.h"
#include "StartPanelView.h"
#include "TestSupport.h"

#include <QLabel>
#include <QPushButton>

using namespace quenara;
using namespace quenara::test;

namespace {

QPushButton *button(const StartPanelView &panel, const QString &name)
{
    for (auto *candidate : panel.findChildren<QPushButton *>()) {
        if (candidate->text() == name || candidate->accessibleName() == name)
            return candidate;
    }
    qFatal("no button %s", qPrintable(name));
}

bool always()
{
    return true;
}

} // namespace

class TestStartPanelView : public GuiTest
{
    Q_OBJECT

private slots:
    void everyStartButtonGivesItsProjectAndDismissesThePanel_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("projectName");
        QTest::newRow("blank") << "New Blank Project"
                               << "Untitled Quenara";
        QTest::newRow("service") << "New Sunday Service"
                                 << "Sunday Service";
        QTest::newRow("demo") << "Open Demo Service"
                              << "Quenara Demo Service";
    }

    void everyStartButtonGivesItsProjectAndDismissesThePanel()
    {
        QFETCH(QString, title);
        QFETCH(QString, projectName);
        World world(ZelvoProject{});
        StartPanelView panel(world.store, always, nullptr);
        panel.show();
        QTest::mouseClick(button(panel, title), Qt::LeftButton);
        QCOMPARE(world.store.project().name, projectName);
        QVERIFY(!world.store.currentFileURL());
        QVERIFY(!panel.isVisible());
    }

    void thePanelIsGoneBeforeAFileIsAskedFor()
    {
        struct Observer : FilePanelRunner
        {
            const StartPanelView *panel = nullptr;
            bool sawThePanel = true;

            std::optional<QUrl> run(const FilePanel & /*panel*/) override
            {
                sawThePanel = panel->isVisible();
                return std::nullopt;
            }
        };
        World world;
        Observer observer;
        WorkspaceStore store(showOf({1}), {.preferences = world.preferences, .panels = observer});
        StartPanelView panel(store, always, nullptr);
        observer.panel = &panel;
        panel.show();
        QTest::mouseClick(button(panel, QStringLiteral("Open File...")), Qt::LeftButton);
        QVERIFY(!observer.sawThePanel);
    }

    void cancellingTheOpenPanelDismissesThePanelToo()
    {
        World world;
        StartPanelView panel(world.store, always, nullptr);
        panel.show();
        QTest::mouseClick(button(panel, QStringLiteral("Open File...")), Qt::LeftButton);
        QCOMPARE(world.panels.asked.size(), 1);
        QVERIFY(!panel.isVisible());
        QCOMPARE(world.store.project().name, QStringLiteral("Quenara Demo Service"));
    }

    void aDocumentThatIsKeptKeepsThePanelToo()
    {
        World world;
        const QUrl url = world.fileUrl(QStringLiteral("Easter.quenara"));
        ProjectFileService::save(ProjectTemplates::demoProject(someTime()), url, someTime());
        world.store.openProject(url);
        const WorkspaceState before = world.store.state();
        int asked = 0;
        StartPanelView panel(
            world.store,
            [&asked] {
                ++asked;
                return false;
            },
            nullptr);
        panel.show();
        const auto buttons = panel.findChildren<QPushButton *>();
        QCOMPARE(buttons.size(), 5);
        for (QPushButton *button : buttons)
            QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(asked, 5);
        QCOMPARE(world.store.state(), before);
        QVERIFY(world.panels.asked.isEmpty());
        QVERIFY(panel.isVisible());
    }

    void withoutRecentProjectsThePanelSaysSo()
    {
        World world;
        const StartPanelView panel(world.store, always, nullptr);
        const QList<QLabel *> labels = panel.findChildren<QLabel *>();
        QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
            return label->text() == QStringLiteral("No recent projects yet.");
        }));
    }

    void aRecentProjectOpensEvenWhenThatFails()
    {
        World world;
        const QUrl url = world.fileUrl(QStringLiteral("Easter.quenara"));
        ZelvoProject easter = ProjectTemplates::newSundayServiceProject(someTime());
        easter.name = QStringLiteral("Easter");
        ProjectFileService::save(easter, url, someTime());
        world.store.openProject(url);
        world.store.newBlankProject();
        {
            StartPanelView panel(world.store, always, nullptr);
            panel.show();
            QTest::mouseClick(button(panel, QStringLiteral("Easter")), Qt::LeftButton);
            QCOMPARE(world.store.project().name, QStringLiteral("Easter"));
            QVERIFY(!panel.isVisible());
        }
        QVERIFY(QFile::remove(url.toLocalFile()));
        StartPanelView panel(world.store, always, nullptr);
        panel.show();
        QTest::mouseClick(button(panel, QStringLiteral("Easter")), Qt::LeftButton);
        QVERIFY(!panel.isVisible());
        QCOMPARE(world.store.errorMessage(), QStringLiteral("Quenara could not read that file."));
    }
};

QUENARA_GUI_TEST_MAIN(TestStartPanelView)
#include "tst_start_panel_view.moc"
