#include "SlideCanvas.h"

#include "BoundedNumbers.h"
#include "CanvasAccessible.h"
#include "CanvasBackdrop.h"
#include "CanvasKeys.h"
#include "CanvasTextLayerEditor.h"
#include "DevicePixels.h"
#include "DropTarget.h"
#include "FocusRing.h"
#include "LayerMenu.h"
#include "LiveSlideMark.h"
#include "SelectionMarks.h"
#include "Show.h"
#include "ThemeColors.h"
#include "TransferredData.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quenara {

SlideCanvas::SlideCanvas(WorkspaceStore &store, RenderCaches &caches, QWidget *parent)
    : QWidget(parent), m_store(store), m_caches(caches),
      m_editor(new CanvasTextLayerEditor(store, caches, this)), m_liveMark(new LiveSlideMark(this))
{
    setObjectName(QStringLiteral("slideCanvas"));
    makeCanvasAccessible();
    setAccessibleName(QStringLiteral("Design canvas"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    new DropTarget(
        *this,
        {.accepts = [this](const QMimeData &dragged) { return m_slide && mayHoldImage(dragged); },
         .take =
             [this](const QMimeData &dragged, const QPointF &point) {
                 const std::optional<SlideMedia> image = imageIn(dragged);
                 if (image && !slideRect().isEmpty())
                     m_store.placeImageLayer(*image, toCanvas(point));
             }});
    connect(&store, &WorkspaceStore::changed, this, &SlideCanvas::showStore);
    connect(m_editor, &CanvasTextLayerEditor::left, this, &SlideCanvas::endEditing);
    showStore();
}

QRectF SlideCanvas::slideRect() const
{
    return m_slide ? fittedCanvasRect(size(), paintedSize(m_slide->design.canvasSize)) : QRectF();
}

double SlideCanvas::scale() const
{
    const QRectF slide = slideRect();
    return slide.isEmpty() ? 0 : slide.width() / paintedSize(m_slide->design.canvasSize).width;
}

QPointF SlideCanvas::toCanvas(const QPointF &point) const
{
    return (point - slideRect().topLeft()) / scale();
}

QRectF SlideCanvas::boxOf(const SlideElement &layer) const
{
    const CanvasFrame &frame = layer.frame;
    return {slideRect().topLeft() + QPointF(frame.x, frame.y) * scale(),
            QSizeF(frame.width, frame.height) * scale()};
}

std::vector<const SlideElement *> SlideCanvas::layersFromTop() const
{
    return m_slide ? quenara::layersFromTop(m_slide->design) : std::vector<const SlideElement *>();
}

const SlideElement *SlideCanvas::layer(const std::optional<QString> &id) const
{
    const auto index = m_slide ? elementIndex(*m_slide, id) : std::nullopt;
    return index ? &m_slide->design.elements.at(*index) : nullptr;
}

const SlideElement *SlideCanvas::layerUnder(const QPointF &point) const
{
    const std::optional<LayerDrag::Press> press = pressAt(point);
    return press ? layer(press->layerID) : nullptr;
}

bool SlideCanvas::isSelected(const SlideElement &layer) const
{
    return layer.id == m_selectedElementID;
}

bool SlideCanvas::isFocused(const SlideElement &layer) const
{
    return layer.id == m_focusedElementID;
}

const SlideElement *SlideCanvas::selectedLayer() const
{
    return layer(m_selectedElementID);
}

/// The selected layer if marks are painted around it. A hidden layer has none, and one that is
/// edited has those of its editor.
const SlideElement *SlideCanvas::markedLayer() const
{
    const SlideElement *layer = selectedLayer();
    return layer && layer->visible && !m_editingElementID ? layer : nullptr;
}

QRect SlideCanvas::marksRect() const
{
    const SlideElement *layer = markedLayer();
    return layer ? selectionMarksRect(boxOf(*layer)) : QRect();
}

void SlideCanvas::showStore()
{
    const std::optional<Slide> slide = m_store.slideWithID(m_store.selectedSlideID());
    const std::optional<QString> selected = m_store.selectedElementID();
    if (slide != m_slide || selected != m_selectedElementID) {
        const QRectF place = slideRect();
        const QRect marks = marksRect();
        m_slide = slide;
        const bool isSelection = std::exchange(m_selectedElementID, selected) != selected;
        if (const SlideElement *layer = isSelection ? selectedLayer() : nullptr)
            announce(QAccessible::SelectionAdd, *layer);
        if (slideRect() == place) {
            // One rectangle, since painting a region clips every pixel to its shape. A canvas that
            // begins within a device pixel reaches one pixel further than its points tell.
            update(place.toAlignedRect().adjusted(-1, -1, 1, 1) | marks | marksRect());
        } else {
            m_backdrop = {};
            update();
        }
    }
    if (m_drag.isPressed() && !m_drag.isOf(selectedLayer()))
        drag([this] { m_drag.end(); });
    if (m_slide && !elementIndex(*m_slide, m_focusedElementID))
        m_focusedElementID.reset();
    showFocus();
    showEditor();
    showLiveMark();
}

void SlideCanvas::showLiveMark()
{
    const bool isLive = m_slide && m_slide->id == m_store.liveSlideID();
    if (isLive && !slideRect().isEmpty()) {
        m_liveMark->showOver(slideRect(), m_store.outputMode());
    } else {
        m_liveMark->hide();
    }
}

void SlideCanvas::showEditor()
{
    if (!m_editingElementID)
        return;
    const SlideElement *layer = selectedLayer();
    if (!layer || !layer->text || layer->id != m_editingElementID) {
        endEditing();
    } else {
        m_editor->setLayer(*layer, slideRect().topLeft(), scale());
    }
}

void SlideCanvas::beginEditing(const QString &layerID, const QPointF &point)
{
    m_store.selectElement(layerID);
    m_editingElementID = layerID;
    showEditor();
    m_editor->beginEditing(point);
}

void SlideCanvas::endEditing()
{
    if (!m_editingElementID)
        return;
    m_editingElementID.reset();
    // Qt would give the focus to the next widget of the window, which may be a text field.
    if (window()->focusWidget() == m_editor)
        setFocus();
    m_editor->endEditing();
    update();
}

std::optional<LayerDrag::Press> SlideCanvas::pressAt(const QPointF &point) const
{
    if (slideRect().isEmpty())
        return std::nullopt;
    const SlideElement *marked = markedLayer();
    if (marked && resizeHandle(boxOf(*marked)).contains(point))
        return LayerDrag::Press{LayerDrag::Grip::handle, marked->id, point};
    const SlideElement *layer = layerAt(m_slide->design, toCanvas(point));
    return layer ? std::optional(LayerDrag::Press{LayerDrag::Grip::layer, layer->id, point})
                 : std::nullopt;
}

void SlideCanvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    focusLayer(std::nullopt);
    drag([&] { m_drag.press(pressAt(event->position())); });
}

void SlideCanvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    const std::optional<LayerDrag::Press> press = pressAt(event->position());
    const SlideElement *layer = press && press->grip == LayerDrag::Grip::layer
        ? layerAt(m_slide->design, toCanvas(press->point))
        : nullptr;
    if (event->button() == Qt::LeftButton && layer && layer->text) {
        beginEditing(press->layerID, press->point);
    } else {
        mousePressEvent(event);
    }
}

void SlideCanvas::mouseMoveEvent(QMouseEvent *event)
{
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        drag([this] { m_drag.end(); });
        showCursor(event->position());
    } else if (m_drag.isOf(selectedLayer()) && !slideRect().isEmpty()) {
        drag([&] {
            m_drag.moveTo(event->position(), *selectedLayer(), m_slide->design.canvasSize, scale());
        });
    }
}

void SlideCanvas::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    drag([this] { m_drag.end(); });
    showCursor(event->position());
}

/// The pointer's menu is that of the layer under it, the keyboard's that of the layer that keys
/// work on.
void SlideCanvas::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const SlideElement *layer = isByKeyboard ? keyLayer() : layerUnder(event->pos());
    if (!layer || m_drag.isPressed())
        return;
    const QString id = layer->id;
    if (isByKeyboard)
        return openMenu(id);
    focusLayer(std::nullopt);
    m_store.selectElement(id);
    makeLayerMenu(m_store, *this->layer(id), this)->popup(event->globalPos());
}

void SlideCanvas::openMenu(const QString &id)
{
    if (!layer(id))
        return;
    m_store.selectElement(id);
    const QRectF inSight = boxOf(*layer(id)).normalized() & QRectF(rect());
    const QPointF place = inSight.isEmpty() ? QRectF(rect()).center() : inSight.center();
    makeLayerMenu(m_store, *layer(id), this)->popup(mapToGlobal(place.toPoint()));
}

/// Has \a change done to the drag, and the guides painted that come or go with it.
void SlideCanvas::drag(const std::function<void()> &change)
{
    const bool hadVertical = m_drag.showVerticalCenterGuide();
    const bool hadHorizontal = m_drag.showHorizontalCenterGuide();
    change();
    if (m_drag.showVerticalCenterGuide() != hadVertical)
        update(verticalCenterGuide(slideRect()).toAlignedRect());
    if (m_drag.showHorizontalCenterGuide() != hadHorizontal)
        update(horizontalCenterGuide(slideRect()).toAlignedRect());
}

void SlideCanvas::showCursor(const QPointF &point)
{
    const std::optional<LayerDrag::Press> press = pressAt(point);
    if (!press) {
        unsetCursor();
    } else {
        setCursor(press->grip == LayerDrag::Grip::handle ? Qt::SizeFDiagCursor : Qt::SizeAllCursor);
    }
}

void SlideCanvas::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel) && m_drag.isDragging()) {
        drag([this] { m_drag.cancel(); });
    } else if (m_drag.isDragging() || !workOnLayer(*event)) {
        event->ignore();
    }
}

/// The modifiers may have been released before the key.
void SlideCanvas::keyReleaseEvent(QKeyEvent *event)
{
    if (!event->isAutoRepeat())
        endKeySteps();
    event->ignore();
}

void SlideCanvas::endKeySteps()
{
    m_store.endGesture(m_keySteps);
}

/// The layer that keys work on.
const SlideElement *SlideCanvas::keyLayer() const
{
    const SlideElement *focused = layer(m_focusedElementID);
    return focused ? focused : selectedLayer();
}

/// Does what the key does to the layer. Returns false for a key that does nothing here.
bool SlideCanvas::workOnLayer(const QKeyEvent &event)
{
    const SlideElement *layer = keyLayer();
    if (!layer)
        return false;
    const CanvasFrame frame = layer->frame;
    if (const std::optional<QPointF> move = moveOf(event)) {
        changeByKey(frame.offsetBy(move->x(), move->y()));
    } else if (const std::optional<QPointF> growth = growthOf(event)) {
        changeByKey(resizedWithin(frame, *growth, m_slide->design.canvasSize));
    } else if (pressesByKey(event)) {
        m_store.selectElement(layer->id);
    } else if (editsByKey(event) && layer->text) {
        const QString id = layer->id;
        beginEditing(id, boxOf(*layer).bottomRight());
    } else {
        return false;
    }
    return true;
}

/// A key that is held down is one undo step.
void SlideCanvas::changeByKey(const CanvasFrame &frame)
{
    m_store.selectElement(keyLayer()->id);
    if (!m_store.isGestureOpen(m_keySteps))
        m_keySteps = m_store.beginGesture();
    m_store.updateSelectedElement([&](SlideElement &element) { element.frame = frame; });
}

void SlideCanvas::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    if (event->reason() == Qt::BacktabFocusReason && m_slide) {
        focusLayer(layerAfter(m_slide->design, std::nullopt, false));
    } else if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::MouseFocusReason) {
        focusLayer(std::nullopt);
    }
}

void SlideCanvas::focusOutEvent(QFocusEvent *event)
{
    endKeySteps();
    QWidget::focusOutEvent(event);
}

/// Tab goes from the canvas through its layers before it leaves.
bool SlideCanvas::focusNextPrevChild(bool next)
{
    const std::optional<QString> reached = m_slide && (next || m_focusedElementID)
        ? layerAfter(m_slide->design, m_focusedElementID, next)
        : std::nullopt;
    const bool isOnCanvas = !next && m_focusedElementID;
    if (!reached && !isOnCanvas)
        return QWidget::focusNextPrevChild(next);
    focusLayer(reached);
    return true;
}

void SlideCanvas::chooseLayer(const QString &id)
{
    setFocus(Qt::MouseFocusReason);
    focusLayer(std::nullopt);
    m_store.selectElement(id);
}

void SlideCanvas::focusLayer(const std::optional<QString> &id)
{
    endKeySteps();
    m_focusedElementID = id;
    showFocus();
    if (!hasFocus())
        return;
    if (const SlideElement *focused = layer(id)) {
        announce(QAccessible::Focus, *focused);
    } else {
        QAccessibleEvent event(this, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void SlideCanvas::announce(QAccessible::Event change, const SlideElement &layer)
{
    const std::vector<const SlideElement *> layers = layersFromTop();
    QAccessibleEvent event(this, change);
    event.setChild(int(std::find(layers.begin(), layers.end(), &layer) - layers.begin()));
    QAccessible::updateAccessibility(&event);
}

/// What the focus ring lies around while a layer has the keyboard: the handle of a layer that has
/// one, too, on all sides alike, with room for the ring's round corner.
QRectF SlideCanvas::focusedBox(const SlideElement &layer) const
{
    constexpr double gap = 3;
    const QRectF box = boxOf(layer);
    const double beyond = &layer == markedLayer() ? resizeHandle(box).width() / 2 + gap : 0;
    return box.normalized().adjusted(-beyond, -beyond, beyond, beyond);
}

/// Puts the focus ring around what has the keyboard, and tells assistive technologies of it.
void SlideCanvas::showFocus()
{
    const SlideElement *layer = m_focusedElementID ? keyLayer() : nullptr;
    constexpr int inset = focusRingDistance;
    const QRect room = rect().adjusted(inset, inset, -inset, -inset);
    setFocusArea(*this, reachableRect(layer ? focusedBox(*layer) : slideRect()) & room);
    const SlideElement *told = keyLayer();
    const QString words = !told
        ? QString()
        : told->name + (isSelected(*told) ? QStringLiteral(", selected, ") : QStringLiteral(", "))
            + describedLayer(*told);
    if (words == accessibleDescription())
        return;
    setAccessibleDescription(words);
    if (told && hasFocus())
        announce(QAccessible::DescriptionChanged, *told);
}

void SlideCanvas::changeEvent(QEvent *event)
{
    if (changesTheme(*event)) {
        m_backdrop = {};
        update();
    }
    QWidget::changeEvent(event);
}

void SlideCanvas::resizeEvent(QResizeEvent * /*event*/)
{
    m_backdrop = {};
    showFocus();
    showEditor();
    showLiveMark();
}

void SlideCanvas::paintEvent(QPaintEvent * /*event*/)
{
    const ZelvoTheme &theme = themeOf(*this);
    QPainter painter(this);
    if (m_backdrop.isNull()) {
        m_backdrop =
            canvasBackdrop(size(), devicePixelRatioF(), slideRect(), colorSchemeOf(palette()));
    }
    painter.drawImage(0, 0, m_backdrop);
    if (!m_slide)
        return;
    m_slideImage.paint(painter,
                       {.slide = paintedSlide(),
                        .scale = scale(),
                        .showSafeArea = true,
                        .selectedElementID = m_selectedElementID},
                       slideRect().topLeft(), m_caches);
    if (m_drag.showVerticalCenterGuide())
        painter.fillRect(verticalCenterGuide(slideRect()), centerGuideColor(theme));
    if (m_drag.showHorizontalCenterGuide())
        painter.fillRect(horizontalCenterGuide(slideRect()), centerGuideColor(theme));
    if (const SlideElement *layer = markedLayer())
        paintSelectionMarks(painter, boxOf(*layer), theme);
}

QString describedLayer(const SlideElement &layer)
{
    return QStringLiteral("at %1, %2, %3 by %4%5%6")
        .arg(std::round(layer.frame.x))
        .arg(std::round(layer.frame.y))
        .arg(std::round(layer.frame.width))
        .arg(std::round(layer.frame.height))
        .arg(layer.visible ? QString() : QStringLiteral(", hidden"),
             layer.locked ? QStringLiteral(", locked") : QString());
}

/// The slide without the layer whose text is edited, which the editor paints.
Slide SlideCanvas::paintedSlide() const
{
    Slide slide = *m_slide;
    if (const auto edited = elementIndex(slide, m_editingElementID))
        slide.design.elements[*edited].opacity = 0;
    return slide;
}

} // namespace quenara
