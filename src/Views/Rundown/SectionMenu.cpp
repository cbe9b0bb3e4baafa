#include "SectionMenu.h"

#include "RundownModel.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenu>

namespace quenara {

QMenu *makeSectionMenu(RundownModel &model, const QModelIndex &section,
                       const std::function<void()> &rename, QWidget *parent)
{
    auto *menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // A dialog that has opened meanwhile keeps the document as it is.
    const auto isRefused = [] { return QApplication::activeModalWidget() != nullptr; };
    menu->addAction(QStringLiteral("Rename"), &model, [rename, isRefused] {
        if (!isRefused())
            rename();
    });
    QMenu *types = menu->addMenu(QStringLiteral("Type"));
    auto *choices = new QActionGroup(types);
    const QPersistentModelIndex row(section);
    for (const ServiceItemType type : allCases<ServiceItemType>()) {
        QAction *choice = types->addAction(title(type), &model, [&model, row, type, isRefused] {
            if (!isRefused())
                model.setData(row, int(type), RundownModel::typeRole);
        });
        choice->setCheckable(true);
        choice->setChecked(section.data(RundownModel::typeRole).toInt() == int(type));
        choices->addAction(choice);
    }
    return menu;
}

} // namespace quenara
