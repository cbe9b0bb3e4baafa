#include "DialogParts.h"

#include "AccessibleControls.h"
#include "PlainToolTip.h"

#include <QAbstractButton>
#include <QDialog>

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

} // namespace quenara
