#include "UndoRedoStore.h"

#include <QTest>

using namespace quenara;

class TestUndoRedoStore : public QObject
{
    Q_OBJECT

private slots:
    void undoOnAnEmptyHistoryReturnsNothingAndLeavesBothStacksUntouched()
    {
        UndoRedoStore history;
        QVERIFY(!history.undo(ZelvoProject()));
        QVERIFY(history.undoStack().isEmpty());
        QVERIFY(history.redoStack().isEmpty());
    }
};

QTEST_APPLESS_MAIN(TestUndoRedoStore)
#include "tst_undo_redo_store.moc"
