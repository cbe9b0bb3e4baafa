#include "CommandWorld.h"
#include "ElidedLabel.h"
#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "Pixels.h"
#include "ProjectFileService.h"
#include "ProjectTemplates.h"
#include "StartPanelView.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_start_panel_view {

namespace {

/// The texts of the column of recent projects, from the top.
QStringList recentTexts(const StartPanelView &panel)
{
    return labelTexts(*panel.findChild<QScrollArea *>()->widget());
}

/// Leaves projects of these names in files of these names as the recent ones, the last in front.
void saveAll(World &world, const QStringList &names)
{
    for (const QString &name : names) {
        world.panels.answer = world.fileUrl(name + u".quenara"_s);
        world.store.updateProjectName(name);
        world.store.saveProjectAs();
    }
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
        CommandWorld world(ZelvoProject{});
        StartPanelView panel(world.store, world.commands, nullptr);
        panel.show();
        press(panel, title);
        QCOMPARE(world.store.project().name, projectName);
        QVERIFY(!world.store.currentFileURL());
        QVERIFY(!panel.isVisible());
    }

    void thePanelIsGoneBeforeAFileIsAskedFor()
    {
        CommandWorld world;
        StartPanelView panel(world.store, world.commands, nullptr);
        std::optional<bool> sawThePanel;
        world.panels.whileOpen = [&] { sawThePanel = panel.isVisible(); };
        panel.show();
        press(panel, QStringLiteral("Open File..."));
        QCOMPARE(sawThePanel, std::optional(false));
    }

    void cancellingTheOpenPanelDismissesThePanelToo()
    {
        CommandWorld world;
        StartPanelView panel(world.store, world.commands, nullptr);
        panel.show();
        press(panel, QStringLiteral("Open File..."));
        QCOMPARE(world.panels.asked.size(), 1);
        QVERIFY(!panel.isVisible());
        QCOMPARE(world.store.project().name, QStringLiteral("Quenara Demo Service"));
    }

    void aDocumentThatIsKeptKeepsThePanelToo()
    {
        CommandWorld world;
        const QUrl url = world.fileUrl(QStringLiteral("Easter.quenara"));
        ProjectFileService::save(ProjectTemplates::demoProject(someTime()), url, someTime());
        world.store.openProject(url);
        const WorkspaceState before = world.store.state();
        world.mayReplaceDocument = false;
        StartPanelView panel(world.store, world.commands, nullptr);
        panel.show();
        const auto buttons = panel.findChildren<QPushButton *>();
        QCOMPARE(buttons.size(), 5);
        for (QPushButton *button : buttons)
            QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(world.consentCount, 5);
        QCOMPARE(world.store.state(), before);
        QVERIFY(world.panels.asked.isEmpty());
        QVERIFY(panel.isVisible());
    }

    void itHasItsSizeAndItsTexts()
    {
        CommandWorld world;
        const StartPanelView panel(world.store, world.commands, nullptr);
        QCOMPARE(panel.size(), QSize(700, 430));
        QCOMPARE(
            labelTexts(panel),
            (QStringList{u"Quenara"_s, u"Projects"_s, u"Recent"_s, u"No recent projects yet."_s}));
    }

    void withoutRecentProjectsThereIsOnlyWordOfThat()
    {
        CommandWorld world;
        const StartPanelView panel(world.store, world.commands, nullptr);
        QCOMPARE(recentTexts(panel), QStringList{u"No recent projects yet."_s});
        QCOMPARE(panel.findChildren<QPushButton *>().size(), 4);
    }

    void recentProjectsStandInTheirOrderWithNameAndPath()
    {
        CommandWorld world;
        saveAll(world, {u"Easter"_s, u"Sunday"_s});
        const StartPanelView panel(world.store, world.commands, nullptr);
        QCOMPARE(recentTexts(panel),
                 (QStringList{u"Sunday"_s, world.fileUrl(u"Sunday.quenara"_s).toLocalFile(),
                              u"Easter"_s, world.fileUrl(u"Easter.quenara"_s).toLocalFile()}));
    }

    void recentProjectsFollowTheStoreWhileThePanelIsOpen()
    {
        CommandWorld world;
        StartPanelView panel(world.store, world.commands, nullptr);
        panel.show();
        saveAll(world, {u"Easter"_s});
        QTRY_COMPARE(recentTexts(panel).constFirst(), u"Easter"_s);
        press(panel, u"Easter"_s);
        QVERIFY(!panel.isVisible());
        QCOMPARE(world.store.currentFileURL(), world.fileUrl(u"Easter.quenara"_s));
    }

    void aRecentProjectWithoutItsFileIsFainterAndSaysSo()
    {
        applyTheme(ZelvoTheme::dark());
        CommandWorld world;
        saveAll(world, {u"Gone"_s, u"There"_s});
        QVERIFY(QFile::remove(world.fileUrl(u"Gone.quenara"_s).toLocalFile()));
        StartPanelView panel(world.store, world.commands, nullptr);
        panel.show();
        const auto &gone = named<QPushButton>(panel, u"Gone"_s);
        const auto &there = named<QPushButton>(panel, u"There"_s);
        for (const QLabel *label : gone.findChildren<QLabel *>())
            QCOMPARE(label->palette().color(QPalette::WindowText), ZelvoTheme::dark().mutedText);
        QCOMPARE(there.findChildren<QLabel *>().constFirst()->palette().color(QPalette::WindowText),
                 ZelvoTheme::dark().primaryText);
        QVERIFY(gone.isEnabled());
        QVERIFY(gone.accessibleDescription().endsWith(u"file not found"_s));
        QVERIFY(!there.accessibleDescription().contains(u"not found"_s));
    }

    void longTextsStayInsideTheirRow()
    {
        CommandWorld world;
        saveAll(world, {QString(120, u'w')});
        StartPanelView panel(world.store, world.commands, nullptr);
        panel.show();
        const auto &row = named<QPushButton>(panel, QString(120, u'w'));
        for (const auto *label : row.findChildren<ElidedLabel *>()) {
            QVERIFY(row.rect().contains(label->geometry()));
            QVERIFY(label->sizeHint().width() > label->width());
        }
    }

    void theTooltipHasTheWholeNameWhereThatIsCutShortAndElseThePath()
    {
        CommandWorld world;
        const QString longName = u"<b>%1</b>"_s.arg(QString(120, u'w'));
        world.panels.answer = world.fileUrl(u"short.quenara"_s);
        const QString path = world.panels.answer->toLocalFile();
        world.store.updateProjectName(longName);
        world.store.saveProjectAs();
        StartPanelView panel(world.store, world.commands, nullptr);
        panel.show();
        const auto labels = named<QPushButton>(panel, longName).findChildren<ElidedLabel *>();
        for (ElidedLabel *label : labels) {
            QHelpEvent help(QEvent::ToolTip, label->rect().center(),
                            label->mapToGlobal(label->rect().center()));
            QApplication::sendEvent(label, &help);
            QVERIFY(QToolTip::isVisible());
            QTextDocument shown;
            shown.setHtml(QToolTip::text());
            QCOMPARE(shown.toPlainText(), label->text() == longName ? longName : path);
            QToolTip::hideText();
            QTRY_VERIFY(!QToolTip::isVisible());
        }
    }

    void aFullListScrollsToTheRowThatTheTabKeyReaches()
    {
        CommandWorld world;
        QStringList names;
        for (int i = 0; i < 10; ++i)
            names.append(u"Service %1"_s.arg(i));
        saveAll(world, names);
        StartPanelView panel(world.store, world.commands, nullptr);
        showActive(panel);
        const auto *scroll = panel.findChild<QScrollArea *>();
        QCOMPARE(scroll->verticalScrollBar()->value(), 0);
        QVERIFY(scroll->verticalScrollBar()->maximum() > 0);
        QCOMPARE(scroll->horizontalScrollBar()->maximum(), 0);
        const QList<QPushButton *> buttons = panel.findChildren<QPushButton *>();
        QCOMPARE(buttons.size(), 14);
        for (const QPushButton *next : buttons) {
            QCOMPARE(QApplication::focusWidget(), next);
            const QRect place(next->mapTo(&panel, QPoint()), next->size());
            QVERIFY2(panel.rect().contains(place), qPrintable(next->accessibleName()));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(QApplication::focusWidget(), buttons.constFirst());
    }

    void returnAndSpacePressTheButtonThatHasTheFocus_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Space") << Qt::Key_Space;
    }

    void returnAndSpacePressTheButtonThatHasTheFocus()
    {
        QFETCH(Qt::Key, key);
        CommandWorld world;
        StartPanelView panel(world.store, world.commands, nullptr);
        showActive(panel);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), key);
        QCOMPARE(world.store.project().name, u"Sunday Service"_s);
        QVERIFY(!panel.isVisible());
    }

    void escapeDismissesThePanelAndChangesNothing()
    {
        CommandWorld world;
        const WorkspaceState before = world.store.state();
        StartPanelView panel(world.store, world.commands, nullptr);
        panel.show();
        QTest::keyClick(&panel, Qt::Key_Escape);
        QVERIFY(!panel.isVisible());
        QCOMPARE(world.store.state(), before);
    }

    void theSymbolsTakeTheAccentOfTheSchemeThatIsShown()
    {
        CommandWorld world;
        StartPanelView panel(world.store, world.commands, nullptr);
        panel.show();
        const auto &start = named<QPushButton>(panel, u"Open Demo Service"_s);
        const QRect symbol(14, 13, 18, 18);
        for (const ZelvoTheme *theme :
             {&ZelvoTheme::dark(), &ZelvoTheme::light(), &ZelvoTheme::dark()}) {
            applyTheme(*theme);
            const QImage image =
                panel.grab(QRect(start.mapTo(&panel, symbol.topLeft()), symbol.size())).toImage();
            QVERIFY(pixelsOf(theme->accent, image) > 10);
            QCOMPARE(panel.grab().toImage().pixelColor(2, 2), theme->appBackground);
        }
    }

    void everyButtonHasItsAccessibleName()
    {
        CommandWorld world;
        saveAll(world, {u"Easter"_s, QString()});
        const StartPanelView panel(world.store, world.commands, nullptr);
        QStringList names;
        for (QPushButton *button : panel.findChildren<QPushButton *>())
            names.append(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name));
        QCOMPARE(names,
                 (QStringList{u"New Blank Project"_s, u"New Sunday Service"_s,
                              u"Open Demo Service"_s, u"Open File..."_s,
                              world.fileUrl(u".quenara"_s).toLocalFile(), u"Easter"_s}));
    }

    void aRecentProjectOpensEvenWhenThatFails()
    {
        CommandWorld world;
        const QUrl url = world.fileUrl(QStringLiteral("Easter.quenara"));
        ZelvoProject easter = ProjectTemplates::newSundayServiceProject(someTime());
        easter.name = QStringLiteral("Easter");
        ProjectFileService::save(easter, url, someTime());
        world.store.openProject(url);
        world.store.newBlankProject();
        {
            StartPanelView panel(world.store, world.commands, nullptr);
            panel.show();
            press(panel, QStringLiteral("Easter"));
            QCOMPARE(world.store.project().name, QStringLiteral("Easter"));
            QVERIFY(!panel.isVisible());
        }
        QVERIFY(QFile::remove(url.toLocalFile()));
        StartPanelView panel(world.store, world.commands, nullptr);
        panel.show();
        press(panel, QStringLiteral("Easter"));
        QVERIFY(!panel.isVisible());
        QCOMPARE(world.store.errorMessage(), QStringLiteral("Quenara could not read that file."));
    }
};

QUENARA_GUI_TEST(TestStartPanelView)

} // namespace tst_start_panel_view

#include "tst_start_panel_view.moc"
