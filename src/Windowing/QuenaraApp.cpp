#include "QuenaraApp.h"

#include "ChangedFileBox.h"
#include "NameInSentence.h"
#include "ProjectTemplates.h"
#include "StateFolder.h"
#include "Typing.h"

#include <QApplication>
#include <QFileInfo>

namespace quenara {

namespace {

QString journalFolder()
{
    return stateFolder() + QStringLiteral("/recovery");
}

QUrl urlOf(const QString &path)
{
    return QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
}

} // namespace

QuenaraApp::QuenaraApp(const QPalette &platformPalette)
    : m_panels([this] { return &m_operatorWindow; }),
      m_questions([this] { return &m_operatorWindow; }),
      m_store(ProjectTemplates::blankProject(QDateTime::currentDateTimeUtc()),
              {.preferences = m_preferences,
               .panels = m_panels,
               .askAboutChangedFile =
                   [this](const QString &name) {
                       return askAboutChangedFile([this] { return &m_operatorWindow; }, name);
                   },
               .mayOpen = [this](const QUrl &file) { return mayOpen(file); }}),
      m_systemScheme(QDBusConnection::sessionBus(), platformPalette),
      m_sleepInhibitor(QDBusConnection::sessionBus()), m_windows(m_systemScheme, m_caches),
      m_appearance(m_preferences), m_outputs(m_store, m_windows, m_appearance),
      m_recorder(m_store, journalFolder()), m_announcer(m_store, m_outputs),
      m_guard(m_store, m_windows, m_questions),
      m_commands({.store = m_store,
                  .outputs = m_outputs,
                  .mayReplaceDocument = [this] { return m_guard.mayReplaceDocument(); }}),
      m_latinKeys(m_commands), m_menus(m_store, m_commands, m_windows),
      m_operatorWindow(m_store, m_windows, m_guard, m_commands, m_menus, m_caches),
      m_windowMemory(m_operatorWindow, WindowMemory::standardFile()),
      m_settingsWindow(m_appearance, m_menus, &m_operatorWindow),
      m_exportWindow(m_store, m_panels, m_menus, &m_operatorWindow),
      m_deferredPreferences(m_preferences, m_operatorWindow),
      m_sessionEnd(m_store, m_operatorWindow, m_guard, m_recorder)
{
    qApp->installEventFilter(&m_latinKeys);
    qApp->installEventFilter(&m_shortcutGuard);
    qApp->installEventFilter(&m_contextMenuKey);
    qApp->installNativeEventFilter(&m_shortcutGuard);
    qApp->installEventFilter(&m_activationGuard);
    qApp->installEventFilter(&m_focusRing);
    QObject::connect(&m_appearance, &AppearancePreference::rawValueChanged, &m_windows,
                     [this](const QString &, const QString &newValue) {
                         m_windows.updateAppearance(appearanceFromPreference(newValue));
                     });
    QObject::connect(&m_windows, &WindowCoordinator::isDisplayWindowOpenChanged, &m_windows,
                     [this] { m_sleepInhibitor.setActive(m_windows.isDisplayWindowOpen()); });
    QObject::connect(&m_store, &WorkspaceStore::currentFileURLChanged, &m_windows, [this] {
        if (const std::optional<QUrl> file = m_store.currentFileURL())
            m_panels.startBeside(*file);
    });
    QObject::connect(&m_commands, &CommandActions::settingsRequested, &m_settingsWindow,
                     &SettingsWindow::present);
    QObject::connect(&m_commands, &CommandActions::exportRequested, &m_exportWindow,
                     &ExportWindow::present);
    const auto recordWindows = [this] { m_recorder.setWindows(m_windows.sessionWindows()); };
    QObject::connect(&m_outputs, &OutputWindows::changed, &m_recorder, recordWindows);
    QObject::connect(&m_windows, &WindowCoordinator::windowMade, &m_recorder, recordWindows);
    QObject::connect(&m_recorder, &SessionRecorder::isKeepingChanged, &m_operatorWindow,
                     &OperatorWindow::showWhetherKept);
    m_windows.updateAppearance(m_appearance.appearance());
    m_operatorWindow.show();
}

void QuenaraApp::start(const QString &path)
{
    m_recovery = std::make_unique<Recovery>(
        Recovery::Context{.store = m_store,
                          .outputs = m_outputs,
                          .recorder = m_recorder,
                          .questions = m_questions,
                          .mayOpen = [this](const QUrl &file) { return mayOpen(file); }},
        journalFolder());
    if (!m_recovery->isAsking())
        return begin(path);
    QObject::connect(m_recovery.get(), &Recovery::answered, &m_operatorWindow,
                     [this, path](bool isContinued) {
                         if (!isContinued)
                             begin(path);
                         m_operatorWindow.activateWindow();
                     });
    m_operatorWindow.askAbout(*m_recovery);
}

void QuenaraApp::begin(const QString &path)
{
    if (path.isEmpty())
        return showStartPanel();
    if (!isOpenElsewhere(urlOf(path)))
        return openDocument(path);
    // The question waits for the window, which it stands on, and for the event loop: asked before
    // that runs, it would outlast a signal that ends the program.
    m_operatorWindow.whenPainted([this, path] {
        openDocument(path);
        const bool isRefused = !m_store.currentFileURL() && !m_store.errorMessage();
        if (isRefused)
            showStartPanel();
    });
}

bool QuenaraApp::isOpenElsewhere(const QUrl &file) const
{
    QStringList own{m_recorder.journal()};
    if (m_recovery)
        own += m_recovery->journals();
    return quenara::isOpenElsewhere(file, journalFolder(), own);
}

bool QuenaraApp::mayOpen(const QUrl &file)
{
    if (!isOpenElsewhere(file))
        return true;
    const LeaveAnswer answer = m_questions.ask({
        .text = QStringLiteral("%1 is open in another running Quenara.")
                    .arg(nameInSentence(file.fileName())),
        .detail = QStringLiteral("If both change it, the one that saves later is asked before it "
                                 "replaces what the other has saved."),
        .offersSave = false,
        .proceedTitle = QStringLiteral("Open Anyway"),
    });
    return answer == LeaveAnswer::proceed;
}

void QuenaraApp::endWithoutAsking()
{
    endTyping();
    m_recorder.setLeavesUnsavedWork(true);
    QCoreApplication::exit();
}

void QuenaraApp::openDocument(const QString &path)
{
    m_store.openProject(urlOf(path));
}

} // namespace quenara
