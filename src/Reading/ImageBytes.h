#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

namespace quenara {

struct DrawingAllowance;

/// The bytes of an image and Qt's reader of them, which reads nothing else: a drawing (SVG) comes
/// to it as containedDrawing() rewrites it. The reader finds no image in bytes that end before
/// their image does, and none in a page description, which other programs would have to run.
class ImageBytes
{
public:
    explicit ImageBytes(const QByteArray &bytes);

    /// Takes from \a allowance what a drawing takes to paint.
    ImageBytes(const QByteArray &bytes, DrawingAllowance &allowance);

    QImageReader &reader() { return m_reader; }

    /// Whether it is made of lines and areas, and can be read at any size.
    bool isDrawing() const;

    /// What the reader reads: the bytes themselves, a rewritten drawing, or nothing.
    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
    QBuffer m_buffer;
    QImageReader m_reader;
};

} // namespace quenara
