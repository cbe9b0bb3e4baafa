#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace quenara {

/// A file panel as a value: what to ask for, not how it is shown.
struct FilePanel
{
    enum class Kind { open, save, folder };
    enum class Content { project, image, exported };

    struct Filter
    {
        QString title;
        QStringList patterns; ///< file name patterns with wildcards

        bool operator==(const Filter &) const = default;
    };

    Kind kind = Kind::open;
    Content content = Content::project;
    QString title;
    QList<Filter> filters; ///< the first one is chosen at first; of a folder there are none
    QString fileName; ///< what the name field of a save panel starts with
    QString defaultSuffix; ///< added to a saved name that lacks it; empty for none

    bool operator==(const FilePanel &) const = default;
};

[[nodiscard]] FilePanel zelvoProjectOpenPanel();
/// Offers the pictures that Qt's image readers can read. Needs a QCoreApplication, which finds
/// them.
[[nodiscard]] FilePanel zelvoImageOpenPanel();
/// The name field starts with \a defaultName, with ".quenara" added unless it ends so already.
[[nodiscard]] FilePanel zelvoProjectSavePanel(const QString &defaultName);

/// The name field starts with \a defaultName and ".pdf".
[[nodiscard]] FilePanel exportedPagesPanel(const QString &defaultName);
/// Asks for a folder.
[[nodiscard]] FilePanel exportedPicturesPanel();

/// What a file of the project of that name is to be called, without a suffix.
[[nodiscard]] QString proposedName(const QString &projectName);

/// Shows file panels to the operator.
class FilePanelRunner
{
public:
    virtual ~FilePanelRunner() = default;

    /// Runs the panel modally. Returns the chosen file or folder, or nothing if the operator
    /// cancels.
    virtual std::optional<QUrl> run(const FilePanel &panel) = 0;
};

} // namespace quenara
