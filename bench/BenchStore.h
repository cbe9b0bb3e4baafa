#pragma once

#include "WorkspaceStore.h"

#include <QImage>
#include <QSettings>
#include <QTemporaryDir>

#include <utility>

namespace quenara::bench {

/// Always chooses the same small image.
class OneImage : public FilePanelRunner
{
public:
    OneImage()
    {
        QImage image(64, 36, QImage::Format_RGB32);
        image.fill(Qt::darkBlue);
        if (!image.save(path()))
            qFatal("cannot write %s", qPrintable(path()));
    }

    std::optional<QUrl> run(const FilePanel & /*panel*/) override
    {
        return QUrl::fromLocalFile(path());
    }

private:
    QString path() const { return m_folder.filePath(QStringLiteral("image.png")); }

    QTemporaryDir m_folder;
};

/// A store with preferences of its own, whose operator chooses one image.
struct BenchStore
{
    QTemporaryDir folder;
    QSettings preferences{folder.filePath(QStringLiteral("preferences.ini")), QSettings::IniFormat};
    OneImage panels;
    WorkspaceStore store;

    explicit BenchStore(ZelvoProject project)
        : store(std::move(project), {.preferences = preferences, .panels = panels})
    {}
};

} // namespace quenara::bench
