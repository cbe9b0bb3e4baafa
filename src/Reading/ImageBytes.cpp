#include "ImageBytes.h"

#include "ContainedDrawing.h"
#include "EncodedImage.h"

namespace quenara {

namespace {

/// Qt's name for the format of an image; empty if there is none.
QByteArray formatOf(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    return reader.format();
}

bool isDrawing(const QByteArray &format)
{
    return format.startsWith("svg");
}

/// Readers of these come with some desktops, and hand the bytes to an interpreter.
bool isPageDescription(const QByteArray &format)
{
    return format.startsWith("eps") || format == "ps" || format == "pdf";
}

QByteArray readable(const QByteArray &bytes, DrawingAllowance &allowance)
{
    if (endsEarly(bytes))
        return {};
    const QByteArray format = formatOf(bytes);
    if (isDrawing(format))
        return containedDrawing(bytes, allowance);
    return isPageDescription(format) ? QByteArray() : bytes;
}

QByteArray readable(const QByteArray &bytes)
{
    DrawingAllowance allowance;
    return readable(bytes, allowance);
}

void prepare(QImageReader &reader, QBuffer &buffer)
{
    buffer.open(QIODevice::ReadOnly);
    reader.setDevice(&buffer);
    reader.setDecideFormatFromContent(true);
}

} // namespace

ImageBytes::ImageBytes(const QByteArray &bytes) : m_bytes(readable(bytes)), m_buffer(&m_bytes)
{
    prepare(m_reader, m_buffer);
}

ImageBytes::ImageBytes(const QByteArray &bytes, DrawingAllowance &allowance)
    : m_bytes(readable(bytes, allowance)), m_buffer(&m_bytes)
{
    prepare(m_reader, m_buffer);
}

bool ImageBytes::isDrawing() const
{
    return quenara::isDrawing(m_reader.format());
}

} // namespace quenara
