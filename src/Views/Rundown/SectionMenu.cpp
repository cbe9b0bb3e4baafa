#include "SectionMenu.h"

#include "AccessibleControls.h"
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
    const auto act = [](const std::function<void()> &edit) {
        closePopups();
        // A dialog that has opened meanwhile keeps the document as it is.
        if (!QApplication::activeModalWidget())
            edit();
    };
    menu->addAction(QStringLiteral("Rename"), &model, [rename, act] { act(rename); });
    QMenu *types = menu->addMenu(QStringLiteral("Type"));
    auto *choices = new QActionGroup(types);
    const QPersistentModelIndex row(section);
    for (const ServiceItemType type : allCases<ServiceItemType>()) {
        QAction *choice = types->addAction(title(type), &model, [&model, row, type, act] {
            act([&] { model.setData(row, int(type), RundownModel::typeRole); });
        });
        choice->setCheckable(true);
        choice->setChecked(section.data(RundownModel::typeRole).toInt() == int(type));
        choices->addAction(choice);
    }
    return menu;
}

} // namespace quenara
