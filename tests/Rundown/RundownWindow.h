#pragma once

#include "CommandWorld.h"
#include "GuiTestSupport.h"
#include "RenderCaches.h"
#include "RundownList.h"
#include "RundownModel.h"
#include "RundownView.h"

#include <QLineEdit>

namespace quenara::test {

/// The rundown as a window of its own.
struct Rundown : CommandWorld
{
    RenderCaches caches;
    RundownView view{store, commands, caches};
    RundownList *list = view.findChild<RundownList *>();
    const RundownModel *model = view.findChild<RundownModel *>();

    explicit Rundown(const ZelvoProject &project) : CommandWorld(project)
    {
        view.resize(RundownView::panelWidth, 576);
        showActive(view);
    }

    QPoint middleOf(const QModelIndex &index) const { return list->visualRect(index).center(); }

    void click(const QModelIndex &index) const
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(index));
    }

    /// The field that a section's title is typed into; null while there is none.
    QLineEdit *titleField() const { return list->findChild<QLineEdit *>(); }

    void beginRenaming(const QModelIndex &section) const
    {
        click(section);
        QTest::keyClick(list, Qt::Key_F2);
        QVERIFY(titleField());
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

inline QModelIndex rowOfSlide(const Rundown &op, const QString &id)
{
    return op.model->indexOfSlide(id);
}

inline QModelIndex rowOfItem(const Rundown &op, const QString &id)
{
    return op.model->indexOfServiceItem(id);
}

} // namespace quenara::test
