#pragma once

#include "PngFile.h"
#include "SlideSink.h"

#include <QImage>

#include <memory>

namespace quenara {

/// A new folder of PNG files, one a slide, as the wall shows them: with black around a slide of
/// another shape. It gets its name when all are there, and one with a number behind it if there is
/// a file or a folder of that name already.
class PictureFolder : public SlideSink
{
public:
    /// Becomes a folder inside \a parentFolder that is named after the project.
    PictureFolder(const QString &parentFolder, const QString &projectName, qsizetype slideCount);
    ~PictureFolder() override;

    bool open() override;
    void paint(const FlattenedSlide &slide, RenderCaches &caches) override;
    bool write() override;
    bool hasMore() const override { return m_file != nullptr; }
    bool finish() override;
    QString fault() const override { return m_fault; }
    QString path() const override { return m_path; }

private:
    QString m_parentFolder;
    QString m_name;
    qsizetype m_slideCount;
    QString m_passing; ///< path of the folder until it is finished; empty while there is none
    QString m_path;
    QString m_fault;
    QString m_pictureName; ///< of the picture painted last
    QImage m_picture;
    std::unique_ptr<PngFile> m_file; ///< null unless a part of the picture is written
    int m_row = 0; ///< the first that is not written
};

/// The name of the picture of a slide: its place in the show, the first being 1, with as many zeros
/// before it as keep the pictures in order, and its titles as far as any file system takes them.
[[nodiscard]] QString pictureName(const FlattenedSlide &slide, qsizetype slideCount);

} // namespace quenara
