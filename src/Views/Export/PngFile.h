#pragma once

#include <QByteArray>
#include <QFile>
#include <QImage>

#include <memory>

struct z_stream_s;

namespace quenara {

/// A PNG file that is written some rows at a time: Qt packs all of a picture at once, which takes
/// longer than the program may stand still.
class PngFile
{
public:
    explicit PngFile(const QString &path);
    ~PngFile();
    PngFile(const PngFile &) = delete;
    PngFile &operator=(const PngFile &) = delete;

    // False if the file cannot be written.

    /// A new file for a picture of \a size.
    [[nodiscard]] bool open(const QSize &size);
    /// Writes the rows of \a image, of 32 bits a pixel and without alpha, from \a first on.
    /// Those of the whole picture come in order, and end the file.
    [[nodiscard]] bool writeRows(const QImage &image, int first, int count);

    QString fault() const { return m_file.errorString(); }

private:
    bool writeChunk(const char *type, const QByteArray &data);
    QByteArray packed(const QByteArray &bytes, bool isLast);

    QFile m_file;
    std::unique_ptr<z_stream_s> m_packing; ///< null until the file is open
};

} // namespace quenara
