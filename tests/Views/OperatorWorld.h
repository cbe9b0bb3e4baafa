#pragma once

#include "CommandWorld.h"
#include "OperatorView.h"
#include "PictureCache.h"
#include "RundownList.h"
#include "RundownModel.h"
#include "SymbolButton.h"

namespace quenara::test {

/// An operator view on a world of its own, shown at its smallest.
struct OperatorWorld
{
    CommandWorld world;
    PictureCache pictures;
    OperatorView view{world.store, world.commands, pictures};
    WorkspaceStore &store = world.store;
    RundownList *list = view.findChild<RundownList *>();
    const RundownModel *model = qobject_cast<const RundownModel *>(list->model());

    OperatorWorld() { showView(); }
    explicit OperatorWorld(const ZelvoProject &project) : world(project) { showView(); }

    void showView()
    {
        view.resize(1180, 760);
        view.show();
        view.activateWindow();
        if (!QTest::qWaitForWindowActive(&view))
            qFatal("the view does not become active");
    }

    QPoint middleOf(const QModelIndex &index) const { return list->visualRect(index).center(); }

    void click(const QModelIndex &index) const
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(index));
    }

    /// The visible buttons of that accessible name, from the top down and left to right.
    QList<SymbolButton *> buttons(const QString &name) const
    {
        QList<SymbolButton *> found;
        for (SymbolButton *button : view.findChildren<SymbolButton *>()) {
            if (button->isVisible() && button->accessibleName() == name)
                found.append(button);
        }
        std::sort(found.begin(), found.end(), [this](const auto *a, const auto *b) {
            const QPoint first = a->mapTo(&view, QPoint());
            const QPoint second = b->mapTo(&view, QPoint());
            return std::pair(first.y(), first.x()) < std::pair(second.y(), second.x());
        });
        return found;
    }

    void press(const QString &name, qsizetype position = 0) const
    {
        const QList<SymbolButton *> found = buttons(name);
        if (position >= found.size())
            qFatal("there is no button \"%s\"", qPrintable(name));
        QTest::mouseClick(found.at(position), Qt::LeftButton);
    }

    /// The titles of the slides in an item, without what showOf() begins them with.
    QStringList titlesOf(qsizetype item) const
    {
        QStringList titles;
        for (const Slide &slide : store.project().serviceItems.at(item).slides)
            titles.append(QString(slide.title).remove(QStringLiteral("Title of ")));
        return titles;
    }
};

} // namespace quenara::test
