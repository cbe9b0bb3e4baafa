#include "DialogParts.h"

#include "AccessibleControls.h"
#include "PlainToolTip.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QBoxLayout>
#include <QColorDialog>
#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace quenara {

namespace {

/// Lists are known by what Qt calls them, the fields of colours by their classes.
QString nameOfPart(const QWidget &part, bool isFirstOfItsClass)
{
    const QString own = part.objectName();
    if (own == QStringLiteral("lookInCombo"))
        return QStringLiteral("Look in");
    if (own == QStringLiteral("fileTypeCombo"))
        return QStringLiteral("Files of type");
    if (own == QStringLiteral("sidebar"))
        return QStringLiteral("Places");
    if (own == QStringLiteral("listView") || own == QStringLiteral("treeView"))
        return QStringLiteral("Files");
    if (part.inherits("QColorPicker"))
        return QStringLiteral("Hue and saturation");
    if (part.inherits("QColorLuminancePicker"))
        return QStringLiteral("Brightness");
    if (part.inherits("QWellArray"))
        return isFirstOfItsClass ? QStringLiteral("Basic colors") : QStringLiteral("Custom colors");
    return {};
}

/// Has the wheel scroll what a number lies in. Qt would turn the number, too.
class WheelPasses : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject * /*number*/, QEvent *event) override
    {
        if (event->type() != QEvent::Wheel)
            return false;
        event->ignore();
        return true;
    }
};

} // namespace

void nameParts(QDialog &dialog)
{
    bool hasSwatches = false;
    for (QWidget *part : dialog.findChildren<QWidget *>()) {
        auto *button = qobject_cast<QAbstractButton *>(part);
        if (button && button->toolTip().isEmpty())
            button->setToolTip(buttonToolTip(button->text().remove(QLatin1Char('&'))));
        const QString name = nameOfPart(*part, !hasSwatches);
        hasSwatches = hasSwatches || part->inherits("QWellArray");
        if (name.isEmpty())
            continue;
        if (part->inherits("QColorPicker") || part->inherits("QColorLuminancePicker")
            || part->inherits("QWellArray"))
            setAccessibleRole(*part, QAccessible::Graphic);
        part->setAccessibleName(name);
    }
}

/// Qt lays the dialog out as a column: what chooses the colour, then the buttons.
void fitInto(const QSize &room, QColorDialog &dialog)
{
    auto *column = qobject_cast<QBoxLayout *>(dialog.layout());
    const QSize whole = dialog.sizeHint();
    if (!column || !column->itemAt(0)->layout() || whole == whole.boundedTo(room))
        return;
    auto *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(new QWidget);
    QLayout *choice = column->takeAt(0)->layout();
    column->insertWidget(0, area, 1);
    area->widget()->setLayout(choice);
    column->setSizeConstraint(QLayout::SetDefaultConstraint);
    auto *wheel = new WheelPasses(area);
    for (QAbstractSpinBox *number : area->findChildren<QAbstractSpinBox *>())
        number->installEventFilter(wheel);
    const QMargins margins = choice->contentsMargins();
    const int beside =
        area->verticalScrollBar()->sizeHint().width() + margins.left() + margins.right();
    dialog.resize((whole + QSize(beside, 0)).boundedTo(room));
}

} // namespace quenara
