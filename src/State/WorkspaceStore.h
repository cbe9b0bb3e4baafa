#pragma once

#include "Clips.h"
#include "FilePanels.h"
#include "Session.h"
#include "Show.h"
#include "UndoRedoStore.h"
#include "WorkspaceState.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QString>
#include <QUrl>

#include <cstdint>
#include <functional>
#include <optional>

class QSettings;

namespace quenara {

/// Names one gesture of a store; the default value names none.
enum class GestureID : quint64 {};

/// The one observable state of the application: the open project, what is selected, queued and
/// live, and the operations that change them. Views read it and call one operation for each thing
/// the operator does.
///
/// Each operation first makes its whole change and then notifies: one signal for each field that
/// differs, then changed(). Whatever a slot reads is the state after the operation.
class WorkspaceStore : public QObject
{
    Q_OBJECT
#define QUENARA_PROPERTY(type, name, initial) Q_PROPERTY(type name READ name NOTIFY name##Changed)
    QUENARA_PUBLISHED_FIELDS(QUENARA_PROPERTY)
#undef QUENARA_PROPERTY

public:
    /// What becomes of a save whose file another program has changed.
    enum class ChangedFileAnswer : std::uint8_t { saveAnyway, saveAs, cancel };

    /// What the store needs of the world outside. The references must outlive the store.
    struct Environment
    {
        QSettings &preferences;
        FilePanelRunner &panels;
        std::function<QDateTime()> now = [] { return QDateTime::currentDateTimeUtc(); };
        /// Asks about the file of that name.
        std::function<ChangedFileAnswer(const QString &fileName)> askAboutChangedFile =
            [](const QString & /*fileName*/) { return ChangedFileAnswer::saveAnyway; };
        /// Whether the operator wants that file opened, which another program may have open.
        std::function<bool(const QUrl &file)> mayOpen = [](const QUrl & /*file*/) { return true; };
    };

    /// Starts on \a project with its order indexes renumbered, the first slide selected, queued
    /// and live, and the recent projects of the preferences.
    WorkspaceStore(ZelvoProject project, Environment environment, QObject *parent = nullptr);

    // Published fields

    const WorkspaceState &state() const { return m_state; }
#define QUENARA_GETTER(type, name, initial)                                                        \
    const type &name() const { return m_state.name; }
    QUENARA_PUBLISHED_FIELDS(QUENARA_GETTER)
#undef QUENARA_GETTER

    // Derived values

    /// Made once for each project, when it is first asked for.
    [[nodiscard]] QList<FlattenedSlide> flattenedSlides() const;
    [[nodiscard]] std::optional<SlideElement> selectedElement() const;
    /// The slide after the live one, none after the last; the first slide when none is live.
    [[nodiscard]] std::optional<Slide> nextSlide() const;
    /// What nextLive(), goLive() and previousLive() would send, in that order.
    [[nodiscard]] QList<Slide> slidesAhead() const;
    [[nodiscard]] std::optional<Slide> slideWithID(const std::optional<QString> &id) const;
    [[nodiscard]] std::optional<SlidePosition> positionOf(
        const std::optional<QString> &slideID) const;
    /// Which state of the document's file was read or saved; empty without a file.
    const QString &fileVersion() const { return m_fileVersion; }
    const UndoRedoStore &undoStore() const { return m_undoStore; }

    // Selection, queue and live (WorkspaceStoreSelection.cpp)

    void selectSlide(const QString &id, bool queue);
    void queueSlide(const std::optional<QString> &id);
    void selectElement(const std::optional<QString> &id);
    /// The selected slide stays, whichever item it is in.
    void selectServiceItem(const QString &id);
    /// Does \a edit, which selects nothing anew: an item that was selected while the selected slide
    /// is in another one stays so, where an edit alone would leave that slide's selected.
    void keepServiceItem(const std::function<void()> &edit);
    void goLive();
    void nextLive();
    void previousLive();
    void queueNext();
    void queuePrevious();
    void toggleBlackout();
    void toggleLogo();

    // Gestures and history (WorkspaceStoreEditing.cpp)

    /// Opens a gesture, such as a drag or the typing into one field: all update operations until it
    /// ends are one undo step together, or none while they leave the project as it was before. The
    /// state at any moment is the one that ending the gesture then would leave.
    ///
    /// There is one at a time. What ends it: another one; undo and redo; any other edit, which is a
    /// step of its own; a document loaded or saved, though not a failure to; a change of the
    /// selected item, slide or layer, unless an update merely repairs what a step of the show has
    /// left selected. The id of an ended gesture does nothing.
    GestureID beginGesture();
    void endGesture(GestureID gesture);
    /// Puts the project, the history and hasUnsavedChanges back to what they were before it.
    void cancelGesture(GestureID gesture);
    [[nodiscard]] bool isGestureOpen(GestureID gesture) const;
    [[nodiscard]] bool hasOpenGesture() const { return m_gesture.has_value(); }

    void undo();
    void redo();

    // The operations that change the project are slots, so that tests can list them and miss none.
public slots:
    // Items and slides (WorkspaceStoreEditing.cpp); see RundownEdits.h for what each does

    void updateProjectName(const QString &name);
    void addServiceItem(ServiceItemType type);
    void updateServiceItem(const QString &id, const std::function<void(ServiceItem &)> &update);
    void deleteSelectedServiceItem();
    void moveSelectedServiceItem(qsizetype delta);
    void moveServiceItem(const QString &id, qsizetype toPosition);
    void addSlide();
    void pasteSlide(const SlideClip &clip);
    void duplicateSelectedSlide();
    void deleteSelectedSlide();
    void moveSelectedSlide(qsizetype delta);
    void moveSlide(const QString &id, const QString &toServiceItemID, qsizetype toPosition);
    void stepSelectedSlide(int step);
    void updateSelectedSlide(const std::function<void(Slide &)> &update);
    void applyTemplateToSelectedSlide(const QString &templateID);
    void importSong(const QString &title, const QString &lyrics);

    // Layers and background (WorkspaceStoreLayers.cpp); see LayerEdits.h for what each does

    void addTextLayer(SlideElementKind kind);
    void addShapeLayer();
    void pasteLayer(const LayerClip &clip);
    void pasteText(const QString &text);
    void addImageLayer(const SlideMedia &media);
    void placeImageLayer(const SlideMedia &media, const QPointF &middle);
    void setBackgroundImage(const SlideMedia &media);
    /// Asks for an image; nothing happens without a selected slide or without an image.
    void addImageLayerWithPanel();
    void setBackgroundImageWithPanel();
    void updateSelectedElement(const std::function<void(SlideElement &)> &update);
    void duplicateSelectedElement();
    void deleteSelectedElement();
    void centerSelectedElementHorizontally();
    void centerSelectedElementVertically();
    void bringSelectedElementForward();
    void sendSelectedElementBackward();

public:
    // Documents (WorkspaceStoreDocuments.cpp); none asks before it drops unsaved changes

    void newBlankProject();
    void newSundayServiceProject();
    void loadDemoProject();
    void openProjectWithPanel();
    /// A failure leaves everything as it is but for errorMessage, a refusal without that.
    void openProject(const QUrl &url);
    /// Goes on with \a session as it stood; the history begins anew. What the session has not kept
    /// is read from its file: false if that fails, which leaves everything as it is but for
    /// errorMessage. If the live slide is not in that file any more, the audience sees black.
    [[nodiscard]] bool continueSession(const Session &session);
    /// Asks for a place first when the document has none, and what to do when its file has changed
    /// since the document was read from it or saved to it. A failure leaves everything as it is but
    /// for errorMessage.
    void saveProject();
    void saveProjectAs();
    void showStartPanel();
    void setStartPanelPresented(bool presented);
    void setSongImportPresented(bool presented);
    /// Presents the song import with \a song in it.
    void offerSong(const SongText &song);
    /// The same with the words in a text file, in UTF-8 and of bounded size, titled as the file is.
    /// A failure leaves everything as it is but for errorMessage.
    void offerSongFile(const QUrl &url);
    void dismissError();

signals:
#define QUENARA_SIGNAL(type, name, initial) void name##Changed();
    QUENARA_PUBLISHED_FIELDS(QUENARA_SIGNAL)
#undef QUENARA_SIGNAL

    /// Emitted once after every operation that changed anything.
    void changed();
    /// A gesture was ended by itself, without a change. An operation that ends one announces what
    /// it changes.
    void gestureEnded();

private:
    using Edit = std::function<std::optional<WorkspaceState>(const WorkspaceState &)>;

    /// What the open gesture began with.
    struct Gesture
    {
        GestureID id;
        ZelvoProject project;
        UndoRedoStore history;
        bool hadUnsavedChanges;
    };

    /// Whether an edit is undone by itself or together with the open gesture, if there is one.
    enum class UndoStep { ofItsOwn, ofTheGesture };
    void editProject(const Edit &edit, UndoStep step = UndoStep::ofItsOwn);
    std::optional<SlideMedia> imageFromPanel();
    void restore(std::optional<ZelvoProject> project, UndoRedoStore history);
    void load(ZelvoProject project, const std::optional<QUrl> &fileURL,
              const QString &fileVersion = {});
    void save(const QUrl &url);
    void fail(const QString &message);
    void publish(WorkspaceState state);
    void publish(WorkspaceState state, UndoRedoStore history);

    Environment m_environment;
    WorkspaceState m_state;
    UndoRedoStore m_undoStore;
    std::optional<Gesture> m_gesture;
    GestureID m_lastGesture{};
    QString m_fileVersion;

    // Caches, which hold for the present project.
    mutable std::optional<QList<FlattenedSlide>> m_flattenedSlides;
    mutable QHash<QString, SlidePosition> m_positions; ///< of the slides that were asked for
};

} // namespace quenara
