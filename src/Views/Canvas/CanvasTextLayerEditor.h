#pragma once

#include "EditedText.h"
#include "InputMethodEdits.h"
#include "TextLayerPlacement.h"
#include "TextLayoutGeometry.h"
#include "WorkspaceStore.h"

#include <QBasicTimer>
#include <QClipboard>
#include <QWidget>

#include <functional>
#include <optional>

namespace quenara {

struct RenderCaches;

/// Edits the text of the selected layer where it stands on the canvas, laid out as the renderer
/// lays it out. Each change is written at once. What is typed in one go is one undo step.
class CanvasTextLayerEditor : public QWidget
{
    Q_OBJECT

public:
    CanvasTextLayerEditor(WorkspaceStore &store, RenderCaches &caches, QWidget *parent);

    /// Lays the editor over \a layer, which is the selected one and has a text. The slide's top
    /// left is at \a slideTopLeft of the parent, and \a scale points are one canvas unit.
    void setLayer(const SlideElement &layer, const QPointF &slideTopLeft, double scale);

    /// Shows the editor with the caret nearest to \a point of the parent, and gives it the
    /// keyboard.
    void beginEditing(const QPointF &point);
    /// Hides the editor.
    void endEditing();

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

signals:
    /// Escape was pressed, or the keyboard has gone elsewhere: the editing has to end.
    void left();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    using Selecting = EditedText::Selecting;
    using Action = std::function<void()>;

    Action actionFor(const QKeyEvent &event);
    Action movementFor(const QKeyEvent &event);
    Action changeFor(const QKeyEvent &event);
    Action commandFor(const QKeyEvent &event);
    void moveTo(qsizetype position, Selecting selecting);
    void showMovedCaret();
    void moveByLines(int lines, Selecting selecting);
    void change(const std::function<void(EditedText &)> &edit);
    void paste(QClipboard::Mode mode);
    void copySelection();
    void layOut();
    void showCaret();
    void stopTyping();

    QRectF caretRect() const;
    QTransform fromBox() const;
    qsizetype positionAt(const QPointF &point) const;

    WorkspaceStore &m_store;
    RenderCaches &m_caches;
    TextElementProperties m_text; ///< of the layer, as the store has it
    TextLayerPlacement m_placement;
    EditedText m_edit;
    Preedit m_preedit;
    TextElementProperties m_shownText; ///< with what is typed and composed
    std::optional<TextLayoutGeometry> m_places; ///< of \c m_shownText
    std::optional<double> m_column; ///< x that the caret keeps to while moving by lines
    GestureID m_typing{};
    QBasicTimer m_blinking;
    bool m_isCaretOn = false;
};

} // namespace quenara
