#pragma once

#include "AppearancePreference.h"
#include "CommandActions.h"
#include "DocumentGuard.h"
#include "GuiTestSupport.h"
#include "OperatorWindow.h"
#include "OutputWindowController.h"
#include "RenderCaches.h"
#include "SlideCanvas.h"
#include "SystemColorScheme.h"
#include "TestSupport.h"
#include "WindowCoordinator.h"
#include "ZelvoCommands.h"

#include <QAction>
#include <QPalette>

namespace quenara::test {

/// Answers questions before leaving as a test has prepared and keeps what was asked.
class PreparedQuestions : public LeaveQuestionRunner
{
public:
    LeaveAnswer answer = LeaveAnswer::cancel;
    std::function<void()> meanwhile = [] {}; ///< happens while the question stands
    QList<LeaveQuestion> asked;

    LeaveAnswer ask(const LeaveQuestion &question) override
    {
        asked.append(question);
        meanwhile();
        return answer;
    }
};

/// A world with windows around its store, on a desktop that is light and has no portal.
struct WindowingWorld : World
{
    SystemColorScheme systemScheme{QDBusConnection(QStringLiteral("none")), QPalette(Qt::white)};
    RenderCaches &caches = GuiTest::caches();
    WindowCoordinator windows{systemScheme, caches};
    AppearancePreference appearance{preferences};
    OutputWindowController outputs{store, windows, appearance};
    PreparedQuestions questions;
    DocumentGuard guard{store, windows, questions};
    CommandActions commands{{.store = store, .outputs = outputs, .mayReplaceDocument = [this] {
                                 return guard.mayReplaceDocument();
                             }}};
    ZelvoCommands menus{store, commands, windows};

    void openDisplay() { windows.openDisplayWindow(store, appearance.appearance()); }
    void openStage() { windows.openStageWindow(store, appearance.appearance()); }

    /// Opens the text of the selected layer by a double click on the canvas in \a window.
    void openText(const QWidget &window) const
    {
        auto *canvas = window.findChild<SlideCanvas *>();
        const CanvasFrame frame = store.selectedElement()->frame;
        const double scale = canvas->slideRect().width() / CanvasSize().width;
        const QPointF middle = QPointF(frame.midX(), frame.midY()) * scale;
        QTest::mouseDClick(canvas, Qt::LeftButton, Qt::NoModifier,
                           (canvas->slideRect().topLeft() + middle).toPoint());
    }
};

} // namespace quenara::test
