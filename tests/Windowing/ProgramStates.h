#pragma once

#include "AccessibleControls.h"
#include "ChangedFileBox.h"
#include "ColorWell.h"
#include "FileDialogRunner.h"
#include "Files.h"
#include "LeaveQuestionBox.h"
#include "ProgramWindows.h"
#include "Recovery.h"
#include "RundownList.h"
#include "SessionJournal.h"
#include "SessionRecorder.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace quenara::test {

/// The program amid a service.
struct Program : ProgramWindows
{
    /// Brings the program into one of the states that it can be met in. What asks the operator
    /// something returns only once that is answered.
    using Arrange = void (*)(Program &program);

    Program()
    {
        // No test of these states looks at the window, and painting it is half of what they cost.
        operatorWindow.setUpdatesEnabled(false);
        store.nextLive();
    }
    explicit Program(Arrange arrange) : Program()
    {
        arrange(*this);
        settle();
    }

    ~Program()
    {
        for (QWidget *popup = QApplication::activePopupWidget(); popup;
             popup = QApplication::activePopupWidget())
            popup->close();
    }

    static void settle()
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    std::unique_ptr<SessionRecorder> recorder;
    std::unique_ptr<Recovery> recovery;

    DialogOwner dialogOwner()
    {
        return [this] { return &operatorWindow; };
    }

    QMenu &openMenu(const QString &title)
    {
        QMenuBar &bar = *operatorWindow.menuBar();
        for (QAction *menu : bar.actions()) {
            if (menu->menu()->title().remove(QLatin1Char('&')) == title)
                QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu).center());
        }
        return *qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }
};

inline bool isReadingFolder(const QWidget &dialog)
{
    const auto *panel = qobject_cast<const QFileDialog *>(&dialog);
    const auto *files = dialog.findChild<QFileSystemModel *>();
    return panel && files && panel->directory().exists(QStringLiteral("Sunday.quenara"))
        && files->rowCount(files->index(panel->directory().path())) == 0;
}

/// Calls \a open and then \a body, which is called while \a open asks the operator something if it
/// does that. Whatever is asked until \a open returns is cancelled.
inline void whileOpen(const std::function<void()> &open, const std::function<void()> &body,
                      const Caller &caller = Caller::current())
{
    const QWidget *const popupBefore = QApplication::activePopupWidget();
    const QWidget *const dialogBefore = QApplication::activeModalWidget();
    bool isMet = false;
    bool isDone = false;
    bool hasFailed = false;
    const auto meet = [&] {
        if (std::exchange(isMet, true))
            return;
        Program::settle();
        try {
            body();
        } catch (const TestFailure &) {
            hasFailed = true; // Qt lets no exception through
        }
        isDone = true;
    };
    QTimer whileAsked;
    QObject::connect(&whileAsked, &QTimer::timeout, &whileAsked, [&] {
        const QWidget *popup = QApplication::activePopupWidget();
        QWidget *dialog = QApplication::activeModalWidget();
        const bool isPopupNew = popup && popup != popupBefore;
        const bool isDialogNew = dialog && dialog != dialogBefore;
        if (isPopupNew || (isDialogNew && dialog->isActiveWindow() && !isReadingFolder(*dialog)))
            meet();
        if (isDone && isPopupNew)
            closePopups();
        if (isDone && isDialogNew && QApplication::activeModalWidget() == dialog)
            dialog->close();
    });
    whileAsked.start(1);
    open();
    whileAsked.stop();
    meet();
    if (hasFailed)
        fail(QStringLiteral("see above"), caller);
}

/// Runs \a body in a program that was brought into a state.
inline void inState(Program::Arrange arrange, const std::function<void(Program &)> &body,
                    const Caller &caller = Caller::current())
{
    Program program;
    whileOpen([&] { arrange(program); }, [&] { body(program); }, caller);
}

struct State
{
    const char *name;
    Program::Arrange arrange;
};

inline void selectText(Program &program)
{
    program.store.addTextLayer(SlideElementKind::text);
}

inline void selectShape(Program &program)
{
    program.store.addShapeLayer();
}

inline void showGradient(Program &program)
{
    program.store.updateSelectedSlide(
        [](Slide &slide) { slide.design.background.kind = SlideBackgroundKind::gradient; });
}

inline void showImage(Program &program)
{
    program.store.updateSelectedSlide(
        [](Slide &slide) { slide.design.background.kind = SlideBackgroundKind::image; });
}

inline void selectNoSlide(Program &program)
{
    program.store.newBlankProject();
}

inline void blackOut(Program &program)
{
    program.store.toggleBlackout();
}

inline void openOutputs(Program &program)
{
    program.openDisplay();
    program.openStage();
}

inline void openStartPanel(Program &program)
{
    program.store.showStartPanel();
}

/// Leaves the work of a program that has ended, the same at each call.
inline void openRecovery(Program &program)
{
    static const QTemporaryDir folder;
    Session session;
    session.projectName = QStringLiteral("Sunday");
    session.project = showOf({1});
    QFile file(folder.filePath(QStringLiteral("left.journal")));
    writeFile(file.fileName(), SessionJournal().add(session).join());
    if (file.open(QIODevice::ReadWrite)) {
        file.setFileTime(QDateTime(QDate(2026, 3, 1), QTime(9, 30)),
                         QFileDevice::FileModificationTime);
    }
    file.close();
    program.recorder = std::make_unique<SessionRecorder>(program.store, folder.path());
    program.recovery = std::make_unique<Recovery>(Recovery::Context{.store = program.store,
                                                                    .outputs = program.outputs,
                                                                    .recorder = *program.recorder,
                                                                    .questions = program.questions},
                                                  folder.path());
    program.operatorWindow.askAbout(*program.recovery);
}

inline void keepNothing(Program &program)
{
    program.operatorWindow.showWhetherKept(false);
}

inline void openSongImport(Program &program)
{
    program.store.setSongImportPresented(true);
}

inline void openGoToSlide(Program &program)
{
    program.commands.perform(Command::goToSlide);
}

inline void renameSection(Program &program)
{
    auto *list = program.operatorWindow.findChild<RundownList *>();
    list->setCurrentIndex(list->model()->index(0, 0));
    QTest::keyClick(list, Qt::Key_F2);
}

inline void openSettings(Program &program)
{
    program.settings.present();
}

inline void openExport(Program &program)
{
    program.exports.present();
}

inline void openAlert(Program &program)
{
    program.store.openProject(QUrl::fromLocalFile(QStringLiteral("/nowhere.quenara")));
}

inline void openAbout(Program &program)
{
    program.commands.action(Command::about)->trigger();
}

inline void openMenu(Program &program)
{
    program.openMenu(QStringLiteral("File"));
}

inline void openSectionMenu(Program &program)
{
    auto *list = program.operatorWindow.findChild<RundownList *>();
    const QPoint section = list->visualRect(list->model()->index(0, 0)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, section, list->mapToGlobal(section));
    QApplication::sendEvent(list->viewport(), &event);
}

inline void openLayerMenu(Program &program)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(program.operatorWindow.findChild<SlideCanvas *>(), &event);
}

inline void openList(Program &program)
{
    const auto pickers = program.operatorWindow.findChildren<QComboBox *>();
    const auto picker = std::find_if(pickers.begin(), pickers.end(),
                                     [](const QComboBox *box) { return box->isVisible(); });
    (*picker)->showPopup();
}

inline void openColorDialog(Program &program)
{
    selectShape(program);
    named<ColorWell>(program.operatorWindow, QStringLiteral("Fill")).click();
}

/// A file that lies alone in a folder, the same at each call.
inline QUrl loneFile()
{
    static const QTemporaryDir folder;
    const QString files = folder.filePath(QStringLiteral("files"));
    QDir(files).removeRecursively();
    QDir().mkdir(files);
    const QString path = files + QStringLiteral("/Sunday.quenara");
    writeFile(path, {});
    return QUrl::fromLocalFile(path);
}

inline void ask(Program &program, const FilePanel &panel)
{
    // The folders of the dialogs before would be among those to look in.
    QSettings(QSettings::UserScope, QStringLiteral("QtProject")).clear();
    FileDialogRunner runner(program.dialogOwner());
    runner.startBeside(loneFile());
    runner.run(panel);
}

inline void openOpenPanel(Program &program)
{
    ask(program, zelvoProjectOpenPanel());
}

inline void openSavePanel(Program &program)
{
    ask(program, zelvoProjectSavePanel(QStringLiteral("Monday")));
}

inline void askAboutTheFile(Program &program)
{
    static_cast<void>(askAboutChangedFile(program.dialogOwner(), QStringLiteral("Sunday.quenara")));
}

inline void askBeforeLeaving(Program &program)
{
    program.store.addSlide();
    program.questions.meanwhile = [&program] {
        LeaveQuestionBox(program.dialogOwner()).ask(program.questions.asked.constLast());
    };
    program.commands.action(Command::newBlankProject)->trigger();
}

/// States of what the program itself shows, and of what Qt opens over it.
inline constexpr State ownStates[] = {
    {"a text layer is selected", selectText},
    {"a shape is selected", selectShape},
    {"the background is a gradient", showGradient},
    {"the background is an image", showImage},
    {"there is no slide", selectNoSlide},
    {"the screen is black", blackOut},
    {"both output windows are open", openOutputs},
    {"left-over work is offered", openRecovery},
    {"nothing would come back after a crash", keepNothing},
    {"the start panel is open", openStartPanel},
    {"the song import is open", openSongImport},
    {"a slide is looked for", openGoToSlide},
    {"a section is renamed", renameSection},
    {"the settings are open", openSettings},
    {"the export is open", openExport},
    {"an alert is open", openAlert},
    {"the program tells about itself", openAbout},
};
inline constexpr State opened[] = {
    {"a menu is open", openMenu},
    {"the menu of a section is open", openSectionMenu},
    {"the menu of a layer is open", openLayerMenu},
    {"the list of a picker is open", openList},
    {"a colour is chosen", openColorDialog},
    {"a project to open is chosen", openOpenPanel},
    {"a file to save in is chosen", openSavePanel},
    {"it is asked about a changed file", askAboutTheFile},
    {"it is asked what to do with changes", askBeforeLeaving},
};

} // namespace quenara::test
