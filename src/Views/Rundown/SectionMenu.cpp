#include "SectionMenu.h"

#include "CommandActions.h"
#include "ContextMenu.h"
#include "RundownModel.h"
#include "WorkspaceStore.h"

#include <QActionGroup>
#include <QMenu>

namespace quenara {

namespace {

void addTypes(QMenu &menu, RundownModel &model, const QModelIndex &section)
{
    QMenu *types = menu.addMenu(QStringLiteral("Type"));
    auto *choices = new QActionGroup(types);
    const QPersistentModelIndex row(section);
    for (const ServiceItemType type : allCases<ServiceItemType>()) {
        QAction *choice = addMenuItem(*types, title(type), [&model, row, type] {
            model.setData(row, int(type), RundownModel::typeRole);
        });
        choice->setCheckable(true);
        choice->setChecked(section.data(RundownModel::typeRole).toInt() == int(type));
        choices->addAction(choice);
    }
}

} // namespace

QMenu *makeSectionMenu(const SectionMenuContext &context, const QModelIndex &section,
                       const std::function<void()> &rename, QWidget *parent)
{
    QMenu *menu = makeContextMenu(parent);
    const auto add = [&](const QString &title, Command command) {
        const QString id = section.data(RundownModel::idRole).toString();
        return addMenuItem(
            *menu, title, [&store = context.store, &commands = context.commands, id, command] {
                commands.selectAndPerform([&] { store.selectServiceItem(id); }, command);
            });
    };
    addMenuItem(*menu, QStringLiteral("Rename"), rename);
    addTypes(*menu, context.model, section);
    menu->addSeparator();
    add(QStringLiteral("Add Slide"), Command::addSlide);
    menu->addSeparator();
    add(QStringLiteral("Move Up"), Command::moveSectionUp)->setEnabled(section.row() > 0);
    add(QStringLiteral("Move Down"), Command::moveSectionDown)
        ->setEnabled(context.model.endOfSection(section).row() < context.model.rowCount() - 1);
    menu->addSeparator();
    add(QStringLiteral("Delete"), Command::deleteSection);
    return menu;
}

} // namespace quenara
