#include "FileDialogRunner.h"

#include "AlertBox.h"
#include "DialogParts.h"
#include "FileNames.h"
#include "NameInSentence.h"
#include "WindowPlace.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSplitter>
#include <QStandardPaths>

#include <utility>

namespace quenara {

namespace {

constexpr QSize dialogSize{880, 560};
constexpr int placesWidth = 180;

QStringList nameFilters(const FilePanel &panel)
{
    QStringList filters;
    for (const FilePanel::Filter &filter : panel.filters) {
        filters.append(
            QStringLiteral("%1 (%2)").arg(filter.title, filter.patterns.join(QLatin1Char(' '))));
    }
    return filters;
}

QFileDialog::FileMode fileModeOf(FilePanel::Kind kind)
{
    switch (kind) {
    case FilePanel::Kind::open:
        return QFileDialog::ExistingFile;
    case FilePanel::Kind::save:
        return QFileDialog::AnyFile;
    case FilePanel::Kind::folder:
        break;
    }
    return QFileDialog::Directory;
}

/// The field for the name in Qt's own dialog; null in a platform's dialog.
QLineEdit *nameField(const QFileDialog &dialog)
{
    return dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
}

/// The file that the dialog's field names. Qt's own dialog would return the file that became
/// selected when the folder had been read, and would read quotes as those around a list of names.
QString chosenFile(const QFileDialog &dialog)
{
    const QLineEdit *field = nameField(dialog);
    if (!field || field->text().isEmpty())
        return dialog.selectedFiles().constFirst();
    const QString name = field->text();
    return name.startsWith(QStringLiteral("~/")) ? QDir::home().filePath(name.sliced(2))
                                                 : dialog.directory().filePath(name);
}

/// The user's folder for files of that \a kind, or the home folder if there is none.
QDir userFolder(QStandardPaths::StandardLocation kind)
{
    const QDir folder(QStandardPaths::writableLocation(kind));
    return folder.exists() ? folder : QDir::home();
}

} // namespace

FileDialogRunner::FileDialogRunner(DialogOwner owner)
    : m_owner(std::move(owner)), m_projects(userFolder(QStandardPaths::DocumentsLocation)),
      m_images(userFolder(QStandardPaths::PicturesLocation)), m_exports(m_projects)
{}

std::optional<QUrl> FileDialogRunner::run(const FilePanel &panel)
{
    if (m_isRunning)
        return std::nullopt;
    const QScopedValueRollback running(m_isRunning, true);
    FilePanel asked = panel;
    std::optional<QString> path = chosenPath(asked);
    while (path && panel.kind == FilePanel::Kind::save && QFileInfo::exists(*path)
           && !mayReplace(*path)) {
        asked.fileName = QFileInfo(*path).fileName();
        path = chosenPath(asked);
    }
    return path ? std::optional(QUrl::fromLocalFile(*path)) : std::nullopt;
}

void FileDialogRunner::startBeside(const QUrl &project)
{
    const QDir folder = QFileInfo(project.toLocalFile()).dir();
    if (project.isLocalFile() && folder.exists())
        m_projects = folder;
}

QDir &FileDialogRunner::folderOf(const FilePanel &panel)
{
    switch (panel.content) {
    case FilePanel::Content::project:
        return m_projects;
    case FilePanel::Content::image:
        return m_images;
    case FilePanel::Content::exported:
        break;
    }
    return m_exports;
}

std::optional<QString> FileDialogRunner::chosenPath(const FilePanel &panel)
{
    const bool saves = panel.kind == FilePanel::Kind::save;
    const bool isFolder = panel.kind == FilePanel::Kind::folder;
    QFileDialog dialog(m_owner(), panel.title, folderOf(panel).path());
    dialog.resize(sizeWithin(m_owner()->screen()->availableSize(), dialogSize, usualFrame));
    // Qt's own dialog has a splitter, and leaves the list of places hardly any room in it.
    if (auto *splitter = dialog.findChild<QSplitter *>())
        splitter->setSizes({placesWidth, dialogSize.width() - placesWidth});
    dialog.setWindowModality(Qt::WindowModal); // the audience window keeps its keys
    dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(fileModeOf(panel.kind));
    dialog.setOption(QFileDialog::ShowDirsOnly, isFolder);
    if (!isFolder)
        dialog.setNameFilters(nameFilters(panel));
    dialog.setSupportedSchemes({QStringLiteral("file")});
    // The dialog would ask about the name before the suffix is added to it.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    // There are too many kinds of pictures to list their suffixes.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!panel.fileName.isEmpty())
        dialog.selectFile(fileNameFrom(panel.fileName));
    nameParts(dialog);
    if (runInFront(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString path = chosenFile(dialog);
    folderOf(panel) = isFolder ? QDir(path) : QFileInfo(path).dir();
    return saves ? savedPath(panel, path) : path;
}

bool FileDialogRunner::mayReplace(const QString &path)
{
    const QFileInfo file(path);
    AlertBox box(QStringLiteral("\u201c%1\u201d already exists. Do you want to replace it?")
                     .arg(nameInSentence(file.fileName())),
                 QStringLiteral("This overwrites the file in the folder \u201c%1\u201d.")
                     .arg(nameInSentence(file.dir().dirName())),
                 AlertBox::Cancel, m_owner());
    const auto *replace = box.addButton(QStringLiteral("Replace"), AlertBox::DestructiveRole);
    box.setDefaultButton(AlertBox::Cancel);
    box.setEscapeButton(AlertBox::Cancel);
    runInFront(box);
    return box.clickedButton() == replace;
}

QString savedPath(const FilePanel &panel, const QString &path)
{
    const QString suffix = QLatin1Char('.') + panel.defaultSuffix;
    return panel.defaultSuffix.isEmpty() || path.endsWith(suffix) ? path : path + suffix;
}

} // namespace quenara
