#include "TestMain.h"
#include "UndoRedoStore.h"

#include <QTest>

using namespace quenara;

namespace tst_undo_redo_store {

namespace {

ZelvoProject named(int number)
{
    ZelvoProject project;
    project.name = QString::number(number);
    return project;
}

QStringList namesOf(const QList<ZelvoProject> &stack)
{
    QStringList names;
    for (const ZelvoProject &project : stack)
        names.append(project.name);
    return names;
}

QStringList numbers(int first, int last)
{
    QStringList names;
    for (int i = first; i <= last; ++i)
        names.append(QString::number(i));
    return names;
}

UndoRedoStore historyOf(int snapshotCount)
{
    UndoRedoStore history;
    for (int i = 1; i <= snapshotCount; ++i)
        history.registerSnapshot(named(i));
    return history;
}

} // namespace

class TestUndoRedoStore : public QObject
{
    Q_OBJECT

private slots:
    void bothStacksStartEmpty()
    {
        const UndoRedoStore history;
        QVERIFY(history.undoStack().isEmpty());
        QVERIFY(history.redoStack().isEmpty());
        QCOMPARE(UndoRedoStore::limit, 60);
    }

    void undoOnAnEmptyHistoryReturnsNothingAndLeavesBothStacksUntouched()
    {
        UndoRedoStore history = historyOf(1);
        QVERIFY(history.undo(named(2)));
        QVERIFY(!history.undo(named(3)));
        QVERIFY(history.undoStack().isEmpty());
        QCOMPARE(namesOf(history.redoStack()), numbers(2, 2));
    }

    void redoWithNothingToRedoReturnsNothingAndLeavesBothStacksUntouched()
    {
        UndoRedoStore history = historyOf(2);
        QVERIFY(!history.redo(named(3)));
        QCOMPARE(namesOf(history.undoStack()), numbers(1, 2));
        QVERIFY(history.redoStack().isEmpty());
    }

    void undoAndRedoWalkTheSnapshotsBackAndForth()
    {
        UndoRedoStore history = historyOf(3);
        QCOMPARE(history.undo(named(4)), named(3));
        QCOMPARE(history.undo(named(3)), named(2));
        QCOMPARE(namesOf(history.undoStack()), numbers(1, 1));
        QCOMPARE(namesOf(history.redoStack()), (numbers(4, 4) + numbers(3, 3)));
        QCOMPARE(history.redo(named(2)), named(3));
        QCOMPARE(history.redo(named(3)), named(4));
        QCOMPARE(namesOf(history.undoStack()), numbers(1, 3));
        QVERIFY(history.redoStack().isEmpty());
    }

    void theSixtyFirstSnapshotDropsTheFirst()
    {
        UndoRedoStore history = historyOf(60);
        QCOMPARE(namesOf(history.undoStack()), numbers(1, 60));
        history.registerSnapshot(named(61));
        QCOMPARE(namesOf(history.undoStack()), numbers(2, 61));
        ZelvoProject current = named(62);
        for (int i = 61; i >= 2; --i) {
            const auto back = history.undo(current);
            QCOMPARE(back, named(i));
            current = *back;
        }
        QVERIFY(!history.undo(current));
    }

    void undoThenRedoOfAFullHistoryLeavesItFull()
    {
        UndoRedoStore history = historyOf(60);
        QVERIFY(history.undo(named(61)));
        QCOMPARE(history.redo(named(60)), named(61));
        QCOMPARE(namesOf(history.undoStack()), numbers(1, 60));
        QVERIFY(history.redoStack().isEmpty());
    }

    void anEditAfterAnUndoDropsEverythingThatCouldBeRedone()
    {
        UndoRedoStore history = historyOf(3);
        QVERIFY(history.undo(named(4)));
        QVERIFY(history.undo(named(3)));
        history.registerSnapshot(named(2));
        QVERIFY(history.redoStack().isEmpty());
        QVERIFY(!history.redo(named(9)));
        QCOMPARE(namesOf(history.undoStack()), numbers(1, 2));
    }

    void onlyRegisteringKeepsToTheLimit()
    {
        UndoRedoStore history = historyOf(60);
        for (int i = 0; i < 60; ++i)
            QVERIFY(history.undo(named(100 + i)));
        QCOMPARE(history.redoStack().size(), 60);
        for (int i = 0; i < 60; ++i)
            QVERIFY(history.redo(named(200 + i)));
        QCOMPARE(history.undoStack().size(), 60);
        QVERIFY(history.redoStack().isEmpty());
    }

    void aSnapshotStaysAsItWasWhenTheDocumentChanges()
    {
        ZelvoProject document = named(1);
        document.serviceItems.append(ServiceItem());
        UndoRedoStore history;
        history.registerSnapshot(document);
        document.serviceItems[0].title = QStringLiteral("changed");
        const auto back = history.undo(document);
        QVERIFY(back);
        QCOMPARE(back->serviceItems.first().title, QString());
    }
};

QUENARA_TEST(TestUndoRedoStore)

} // namespace tst_undo_redo_store

#include "tst_undo_redo_store.moc"
