#include "LayerInspector.h"

#include "InspectorRows.h"
#include "NumberField.h"
#include "RoleLabel.h"
#include "SelectionBindings.h"
#include "ShapeInspector.h"
#include "Slider.h"
#include "Switch.h"
#include "TextField.h"
#include "TextInspector.h"
#include "Typing.h"

#include <QVBoxLayout>

#include <limits>

namespace quenara {

namespace {

constexpr int narrowTitleWidth = 24;
constexpr int frameFieldWidth = 82;
constexpr int frameFieldGap = 12;
constexpr double anyNumber = std::numeric_limits<double>::lowest();

struct FrameField
{
    const char *title;
    const char *name;
    double minimum;
    double CanvasFrame::*side;
};

constexpr FrameField frameFields[][2] = {
    {{"X", "X", anyNumber, &CanvasFrame::x}, {"Y", "Y", anyNumber, &CanvasFrame::y}},
    {{"W", "Width", CanvasFrame::minimumWidth, &CanvasFrame::width},
     {"H", "Height", CanvasFrame::minimumHeight, &CanvasFrame::height}},
};

QWidget *makeFrameField(SelectionBindings &selection, const FrameField &field)
{
    QLabel *title = makeRoleLabel(QStringLiteral("fieldLabel"), QString::fromUtf8(field.title));
    title->setFixedWidth(narrowTitleWidth);
    auto *number = selection.bound(new NumberField(QString::fromUtf8(field.name), field.minimum),
                                   selection.ofLayer([side = field.side](SlideElement &layer) {
                                       return &(layer.frame.*side);
                                   }));
    number->setFixedWidth(frameFieldWidth);
    return sideBySide({title, number}, 0);
}

QWidget *makeCommonRows(SelectionBindings &selection)
{
    const auto ofLayer = [&](auto member) {
        return selection.ofLayer([member](SlideElement &layer) { return &(layer.*member); });
    };
    auto *rows = new InspectorRows;
    rows->add(selection.bound(new TextField(QStringLiteral("Name")), ofLayer(&SlideElement::name)));
    rows->addPair(
        selection.bound(new Switch(QStringLiteral("Visible")), ofLayer(&SlideElement::visible)),
        selection.bound(new Switch(QStringLiteral("Locked")), ofLayer(&SlideElement::locked)));
    rows->add(selection.bound(new Slider(QStringLiteral("Opacity"), 0, 1),
                              ofLayer(&SlideElement::opacity)));
    for (const auto &[left, right] : frameFields) {
        rows->addUntitled(sideBySide(
            {makeFrameField(selection, left), makeFrameField(selection, right)}, frameFieldGap));
    }
    return rows;
}

} // namespace

LayerInspector::LayerInspector(SelectionBindings &selection, QWidget *parent)
    : QWidget(parent), m_selection(selection),
      m_hint(makeRoleLabel(QStringLiteral("fieldLabel"),
                           QStringLiteral("Select a layer on the canvas or in the layer list."))),
      m_commonRows(makeCommonRows(selection)), m_textRows(makeTextInspector(selection)),
      m_shapeRows(makeShapeInspector(selection))
{
    m_hint->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(InspectorRows::rowGap);
    for (QWidget *block : QWidgetList{m_hint, m_commonRows, m_textRows, m_shapeRows})
        layout->addWidget(block);
    connect(&selection, &SelectionBindings::changed, this, &LayerInspector::showRows);
    showRows();
}

void LayerInspector::showRows()
{
    const std::optional<SlideElement> &layer = m_selection.layer();
    const std::pair<QWidget *, bool> blocks[] = {
        {m_hint, !layer},
        {m_commonRows, layer.has_value()},
        {m_textRows, layer && isText(layer->kind)},
        {m_shapeRows, layer && layer->kind == SlideElementKind::shape},
    };
    for (const auto &[block, isShown] : blocks) {
        // Qt would give the focus to the next field, which would take the keys of the show.
        QWidget *focused = window()->focusWidget();
        if (!isShown && focused && block->isAncestorOf(focused))
            leaveField(*focused);
        block->setVisible(isShown);
    }
}

} // namespace quenara
