#include "ChangedFileBox.h"

#include "AlertBox.h"
#include "NameInSentence.h"

#include <QPushButton>

namespace quenara {

WorkspaceStore::ChangedFileAnswer askAboutChangedFile(const DialogOwner &owner,
                                                      const QString &fileName)
{
    using Answer = WorkspaceStore::ChangedFileAnswer;
    AlertBox box(QStringLiteral("%1 was changed by another program since it was opened.")
                     .arg(nameInSentence(fileName)),
                 QStringLiteral("Saving replaces what the other program has written."),
                 AlertBox::Cancel, owner());
    const auto *saveAnyway =
        box.addButton(QStringLiteral("Save Anyway"), AlertBox::DestructiveRole);
    auto *saveAs = box.addButton(QStringLiteral("Save As..."), AlertBox::AcceptRole);
    box.setDefaultButton(saveAs);
    box.setEscapeButton(AlertBox::Cancel);
    runInFront(box);
    if (box.clickedButton() == saveAnyway)
        return Answer::saveAnyway;
    return box.clickedButton() == saveAs ? Answer::saveAs : Answer::cancel;
}

} // namespace quenara
