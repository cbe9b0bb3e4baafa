#include "FileDialogRunner.h"

#include <QApplication>
#include <QFileDialog>

namespace quenara {

namespace {

QStringList nameFilters(const FilePanel &panel)
{
    QStringList filters;
    for (const FilePanel::Filter &filter : panel.filters) {
        filters.append(
            QStringLiteral("%1 (%2)").arg(filter.title, filter.patterns.join(QLatin1Char(' '))));
    }
    return filters;
}

} // namespace

std::optional<QUrl> FileDialogRunner::run(const FilePanel &panel)
{
    const bool saves = panel.kind == FilePanel::Kind::save;
    QFileDialog dialog(QApplication::activeWindow(), panel.title);
    dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFilters(panel));
    dialog.setDefaultSuffix(panel.defaultSuffix);
    if (!panel.fileName.isEmpty())
        dialog.selectFile(panel.fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedUrls().isEmpty())
        return std::nullopt;
    return dialog.selectedUrls().constFirst();
}

} // namespace quenara
