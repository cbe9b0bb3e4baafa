#include "EncodedImage.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

/// What is left of a file while it is walked through. Taking more than there is leaves nothing and
/// makes it cut short.
class Rest
{
public:
    explicit Rest(QByteArrayView bytes) : m_bytes(bytes) {}

    bool isCutShort() const { return m_isCutShort; }
    bool isAtEnd() const { return m_bytes.isEmpty(); }
    QByteArrayView bytes() const { return m_bytes; }

    QByteArrayView take(qint64 count)
    {
        m_isCutShort = m_isCutShort || count > m_bytes.size();
        const QByteArrayView taken = m_bytes.first(std::clamp<qint64>(count, 0, m_bytes.size()));
        m_bytes = m_bytes.sliced(taken.size());
        return taken;
    }

    /// A number of the width of \a T; 0 if it is cut short.
    template<class T>
    T takeBigEndian()
    {
        const QByteArrayView taken = take(sizeof(T));
        return m_isCutShort ? T(0) : qFromBigEndian<T>(taken.data());
    }
    template<class T>
    T takeLittleEndian()
    {
        return qbswap(takeBigEndian<T>());
    }

private:
    QByteArrayView m_bytes;
    bool m_isCutShort = false;
};

/// The next marker, without the 0xff that it begins with; there may be more than one of these.
quint8 takeJpegMarker(Rest &rest)
{
    constexpr quint8 first = 0xff;
    while (!rest.isCutShort() && rest.takeBigEndian<quint8>() != first) {}
    quint8 marker = first;
    while (marker == first)
        marker = rest.takeBigEndian<quint8>();
    return marker;
}

/// Sections with headers come first, then the compressed pixels, among which the mark of the end
/// never stands.
bool jpegEndsEarly(Rest rest)
{
    constexpr quint8 startOfPixels = 0xda;
    constexpr QByteArrayView endOfImage("\xff\xd9");
    constexpr qint64 startSize = 2;
    rest.take(startSize);
    while (!rest.isCutShort() && takeJpegMarker(rest) != startOfPixels)
        rest.take(rest.takeBigEndian<quint16>() - qint64(sizeof(quint16)));
    return rest.isCutShort() || rest.bytes().lastIndexOf(endOfImage) < 0;
}

bool pngEndsEarly(Rest rest)
{
    constexpr qint64 signatureSize = 8;
    constexpr qint64 checksumSize = 4;
    rest.take(signatureSize);
    QByteArrayView type;
    while (type != "IEND" && !rest.isCutShort()) {
        const qint64 size = rest.takeBigEndian<quint32>();
        type = rest.take(4);
        rest.take(size + checksumSize);
    }
    return rest.isCutShort();
}

/// A table of colours, whose size the flags before it tell.
void takeGifColors(Rest &rest, quint8 flags)
{
    constexpr qint64 bytesPerColor = 3;
    if (flags & 0x80U)
        rest.take(bytesPerColor << ((flags & 7U) + 1));
}

void takeGifBlocks(Rest &rest)
{
    while (const auto size = rest.takeBigEndian<quint8>())
        rest.take(size);
}

/// Files that lack nothing but the mark of the end are whole.
bool gifEndsEarly(Rest rest)
{
    constexpr quint8 image = 0x2c;
    constexpr quint8 extension = 0x21;
    rest.take(10);
    const auto flags = rest.takeBigEndian<quint8>();
    rest.take(2);
    takeGifColors(rest, flags);
    bool hasImage = false;
    while (!rest.isAtEnd()) {
        const auto kind = rest.takeBigEndian<quint8>();
        if (kind == image) {
            rest.take(8);
            takeGifColors(rest, rest.takeBigEndian<quint8>());
        } else if (kind != extension) {
            break;
        }
        rest.take(1);
        takeGifBlocks(rest);
        hasImage = hasImage || kind == image;
    }
    return rest.isCutShort() || !hasImage;
}

bool webpEndsEarly(Rest rest)
{
    rest.take(4);
    rest.take(rest.takeLittleEndian<quint32>());
    return rest.isCutShort();
}

/// Of compressed pixels, the header has the size.
bool bmpEndsEarly(Rest rest)
{
    constexpr quint32 oldHeaderSize = 12;
    const qint64 fileSize = rest.bytes().size();
    rest.take(10);
    const qint64 pixelsStart = rest.takeLittleEndian<quint32>();
    const bool isOld = rest.takeLittleEndian<quint32>() == oldHeaderSize;
    const qint64 width = isOld ? rest.takeLittleEndian<quint16>() : rest.takeLittleEndian<qint32>();
    const qint64 height =
        isOld ? rest.takeLittleEndian<quint16>() : rest.takeLittleEndian<qint32>();
    rest.take(2);
    const qint64 bitsPerPixel = rest.takeLittleEndian<quint16>();
    const quint32 compression = isOld ? 0 : rest.takeLittleEndian<quint32>();
    const qint64 compressedSize = isOld ? 0 : rest.takeLittleEndian<quint32>();
    constexpr quint32 runLengths8 = 1;
    constexpr quint32 runLengths4 = 2;
    const bool isCompressed = compression == runLengths8 || compression == runLengths4;
    // As reals, since what a hostile header says may be beyond 64 bits.
    const qint64 wordsPerRow = (width * bitsPerPixel + 31) / 32;
    constexpr double wordSize = 4;
    const double size = isCompressed ? double(compressedSize)
                                     : double(wordsPerRow) * wordSize * std::abs(double(height));
    return rest.isCutShort() || double(pixelsStart) + size > double(fileSize);
}

} // namespace

bool endsEarly(QByteArrayView image)
{
    if (image.startsWith("\xff\xd8\xff"))
        return jpegEndsEarly(Rest(image));
    if (image.startsWith("\x89PNG\r\n\x1a\n"))
        return pngEndsEarly(Rest(image));
    if (image.startsWith("GIF87a") || image.startsWith("GIF89a"))
        return gifEndsEarly(Rest(image));
    if (image.startsWith("RIFF"))
        return webpEndsEarly(Rest(image));
    return image.startsWith("BM") && bmpEndsEarly(Rest(image));
}

} // namespace quenara
