#pragma once

#include "EditedText.h"
#include "TextPlaces.h"
#include "WorkspaceStore.h"

#include <QBasicTimer>
#include <QClipboard>
#include <QPainterPath>
#include <QTransform>
#include <QWidget>

#include <functional>
#include <optional>

namespace quenara {

/// Edits the text of the selected layer where it stands on the canvas, set as the renderer sets it.
/// Each change is written at once; what is typed in one go is one undo step.
class CanvasTextLayerEditor : public QWidget
{
    Q_OBJECT

public:
    CanvasTextLayerEditor(WorkspaceStore &store, QWidget *parent);

    /// Stands over \a layer, which is the selected one and carries text. The slide's top left is at
    /// \a slideTopLeft of the parent, and \a scale points are one canvas unit.
    void setLayer(const SlideElement &layer, const QPointF &slideTopLeft, double scale);

    /// Appears with the caret nearest to \a point of the parent and takes the keyboard.
    void beginEditing(const QPointF &point);
    /// Disappears.
    void endEditing();

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

signals:
    void escapePressed();

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
    void moveByLines(int lines, Selecting selecting);
    void change(const std::function<void(EditedText &)> &edit);
    void paste(QClipboard::Mode mode);
    void copySelection();
    void layOut();
    void showCaret();
    void stopTyping();

    TextElementProperties shownText() const;
    QRectF box() const;
    QRectF plate() const;
    QTransform toWidget() const;
    QRectF caretRect() const;
    qsizetype positionAt(const QPointF &point) const;

    WorkspaceStore &m_store;
    SlideElement m_layer;
    QPointF m_slideTopLeft; ///< in the parent
    double m_scale = 1;
    EditedText m_edit;
    QString m_preedit; ///< what an input method is composing, at the caret
    qsizetype m_preeditCaret = 0;
    std::optional<TextPlaces> m_places; ///< of what is shown
    std::optional<double> m_column; ///< where the caret keeps to while it moves by lines
    GestureID m_typing{};
    QBasicTimer m_blinking;
    bool m_isCaretOn = false;
};

} // namespace quenara
