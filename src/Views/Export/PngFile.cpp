#include "PngFile.h"

#include <QtEndian>

#include <zlib.h>

namespace quenara {

namespace {

constexpr int packingLevel = 2; ///< of 9; more takes twice as long and saves a sixth
constexpr char bitsAChannel = 8;
constexpr char redGreenBlue = 2;
constexpr char asDifferenceFromTheRowAbove = 2;
constexpr int channelCount = 3;

QByteArray bigEndian(quint32 number)
{
    QByteArray bytes(sizeof number, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

/// Appends a row of the picture to \a bytes.
void appendRow(QByteArray &bytes, const QImage &image, int y)
{
    const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
    const auto *above =
        y > 0 ? reinterpret_cast<const QRgb *>(image.constScanLine(y - 1)) : nullptr;
    bytes.append(asDifferenceFromTheRowAbove);
    const qsizetype start = bytes.size();
    bytes.resize(start + qsizetype(channelCount) * image.width());
    char *to = bytes.data() + start;
    for (int x = 0; x < image.width(); ++x) {
        const QRgb before = above ? above[x] : 0;
        *to++ = char(qRed(row[x]) - qRed(before));
        *to++ = char(qGreen(row[x]) - qGreen(before));
        *to++ = char(qBlue(row[x]) - qBlue(before));
    }
}

} // namespace

PngFile::PngFile(const QString &path) : m_file(path) {}

PngFile::~PngFile()
{
    if (m_packing)
        deflateEnd(m_packing.get());
}

bool PngFile::open(const QSize &size)
{
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return false;
    m_packing = std::make_unique<z_stream_s>();
    deflateInit(m_packing.get(), packingLevel);
    const QByteArray signature("\x89PNG\r\n\x1a\n");
    const QByteArray header = bigEndian(quint32(size.width())) + bigEndian(quint32(size.height()))
        + bitsAChannel + redGreenBlue + QByteArray(3, '\0');
    return m_file.write(signature) == signature.size() && writeChunk("IHDR", header);
}

bool PngFile::writeRows(const QImage &image, int first, int count)
{
    QByteArray bytes;
    bytes.reserve(count * (qsizetype(channelCount) * image.width() + 1));
    for (int y = first; y < first + count; ++y)
        appendRow(bytes, image, y);
    const bool isLast = first + count == image.height();
    return writeChunk("IDAT", packed(bytes, isLast)) && (!isLast || writeChunk("IEND", {}));
}

QByteArray PngFile::packed(const QByteArray &bytes, bool isLast)
{
    QByteArray result(qsizetype(deflateBound(m_packing.get(), uLong(bytes.size()))), '\0');
    m_packing->next_in = reinterpret_cast<Bytef *>(const_cast<char *>(bytes.constData()));
    m_packing->avail_in = uInt(bytes.size());
    m_packing->next_out = reinterpret_cast<Bytef *>(result.data());
    m_packing->avail_out = uInt(result.size());
    deflate(m_packing.get(), isLast ? Z_FINISH : Z_SYNC_FLUSH);
    result.chop(qsizetype(m_packing->avail_out));
    return result;
}

bool PngFile::writeChunk(const char *type, const QByteArray &data)
{
    const QByteArray content = type + data;
    const auto sum =
        crc32(0, reinterpret_cast<const Bytef *>(content.constData()), uInt(content.size()));
    const QByteArray chunk = bigEndian(quint32(data.size())) + content + bigEndian(quint32(sum));
    return m_file.write(chunk) == chunk.size();
}

} // namespace quenara
