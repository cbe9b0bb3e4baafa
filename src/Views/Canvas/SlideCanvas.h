#pragma once

#include "LayerDrag.h"
#include "SlideImage.h"

#include <QAccessible>
#include <QImage>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace quenara {

class CanvasTextLayerEditor;
class LiveSlideMark;
struct RenderCaches;

/// The selected slide, whose layers the pointer changes: a press selects a layer, a drag moves it
/// or, by its handle, resizes it, and a double click edits its text in place.
///
/// The Tab key reaches the canvas, where keys work on the selected layer, and then each layer from
/// the topmost down: Ctrl with an arrow moves it, with Alt resizes it, each by one canvas unit or,
/// with Shift, by ten; Ctrl+Space selects it; F2 edits its text. Any other key is the show's.
class SlideCanvas : public QWidget
{
    Q_OBJECT

public:
    SlideCanvas(WorkspaceStore &store, RenderCaches &caches, QWidget *parent = nullptr);

    /// The slide in points of the widget; empty without one.
    [[nodiscard]] QRectF slideRect() const;

    /// The layers of the slide from the topmost down. They are the canvas's until it changes.
    [[nodiscard]] std::vector<const SlideElement *> layersFromTop() const;
    /// Null if the slide has no such layer.
    [[nodiscard]] const SlideElement *layer(const std::optional<QString> &id) const;
    /// The layer that a press at \a point selects, in points of the widget; null if there is none.
    [[nodiscard]] const SlideElement *layerUnder(const QPointF &point) const;
    /// Where the layer lies, in points of the widget.
    [[nodiscard]] QRectF boxOf(const SlideElement &layer) const;
    [[nodiscard]] bool isSelected(const SlideElement &layer) const;
    /// Whether Tab has reached the layer.
    [[nodiscard]] bool isFocused(const SlideElement &layer) const;

    /// Does what a click on the layer does.
    void chooseLayer(const QString &id);
    /// Selects the layer and opens its context menu on it. Nothing happens for an unknown id.
    void openMenu(const QString &id);
    /// Does what Tab does when it reaches the layer; with none, when it reaches the canvas.
    void focusLayer(const std::optional<QString> &id);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    double scale() const;
    QPointF toCanvas(const QPointF &point) const;
    QRect marksRect() const;
    const SlideElement *selectedLayer() const;
    const SlideElement *markedLayer() const;
    const SlideElement *keyLayer() const;
    bool workOnLayer(const QKeyEvent &event);
    void changeByKey(const CanvasFrame &frame);
    void endKeySteps();
    QRectF focusedBox(const SlideElement &layer) const;
    void showFocus();
    void announce(QAccessible::Event change, const SlideElement &layer);
    std::optional<LayerDrag::Press> pressAt(const QPointF &point) const;

    void showStore();
    void showEditor();
    void showLiveMark();
    void showCursor(const QPointF &point);
    void drag(const std::function<void()> &change);
    void beginEditing(const QString &layerID, const QPointF &point);
    void endEditing();
    Slide paintedSlide() const;

    WorkspaceStore &m_store;
    RenderCaches &m_caches;
    std::optional<Slide> m_slide; ///< what is shown
    std::optional<QString> m_selectedElementID;
    SlideImage m_slideImage;
    QImage m_backdrop; ///< null once it is outdated

    LayerDrag m_drag{m_store};
    GestureID m_keySteps{}; ///< the changes by a key that is held down
    std::optional<QString> m_focusedElementID; ///< the layer that Tab has reached
    std::optional<QString> m_editingElementID;
    CanvasTextLayerEditor *m_editor;
    LiveSlideMark *m_liveMark;
};

/// Says where a layer lies and what is peculiar about it, for those who do not see it.
[[nodiscard]] QString describedLayer(const SlideElement &layer);

} // namespace quenara
