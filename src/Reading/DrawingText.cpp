#include "DrawingText.h"

#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>
#include <optional>
#include <zlib.h>

namespace quenara {

namespace {

constexpr qsizetype largestDrawing = qsizetype(32) << 20U; // bytes, uncompressed

// Nanoseconds that it takes to read a text, to write it anew and to have Qt read that twice.
constexpr double ofACharacterOfText = 25;
constexpr double ofAMark = 650;
constexpr double ofTwoAttributes = 5; ///< of an element, compared

bool isCompressed(const QByteArray &bytes)
{
    return bytes.startsWith("\x1f\x8b");
}

bool mayRead(qsizetype size, DrawingAllowance &allowance)
{
    return size <= largestDrawing && allowance.spend(0);
}

/// Empty if the bytes are damaged or hold more than may be read.
QByteArray uncompressed(QByteArray bytes, DrawingAllowance &allowance)
{
    z_stream stream{};
    constexpr int gzip = 16;
    if (inflateInit2(&stream, MAX_WBITS + gzip) != Z_OK)
        return {};
    stream.next_in = reinterpret_cast<Bytef *>(bytes.data());
    stream.avail_in = uInt(bytes.size());
    QByteArray whole;
    int status = Z_OK;
    QByteArray piece(65536, Qt::Uninitialized);
    while (status == Z_OK && mayRead(whole.size(), allowance)) {
        stream.next_out = reinterpret_cast<Bytef *>(piece.data());
        stream.avail_out = uInt(piece.size());
        status = inflate(&stream, Z_NO_FLUSH);
        const qsizetype size = piece.size() - qsizetype(stream.avail_out);
        whole.append(piece.constData(), size);
        allowance.effort -= ofACharacterOfText * double(size);
    }
    inflateEnd(&stream);
    return status == Z_STREAM_END ? whole : QByteArray();
}

/// Nothing if it is none of those whose characters are told apart here.
std::optional<QStringConverter::Encoding> encodingOf(const QByteArray &bytes)
{
    if (const auto encoding = QStringConverter::encodingForData(bytes, u'<'))
        return encoding;
    static const QRegularExpression declaration(
        QStringLiteral(R"(\A<\?xml\s[^>]*?\bencoding\s*=\s*["']([^"']*))"));
    constexpr qsizetype longestDeclaration = 1000;
    const QByteArray name =
        declaration
            .match(QString::fromLatin1(bytes.first(std::min(bytes.size(), longestDeclaration))))
            .captured(1)
            .toLower()
            .toLatin1();
    if (name.isEmpty() || name == "utf-8" || name == "utf8" || name == "us-ascii")
        return QStringConverter::Utf8;
    if (name == "iso-8859-1" || name == "latin1")
        return QStringConverter::Latin1;
    return std::nullopt;
}

/// What tags, attributes and references take. An attribute is compared with all others of its
/// element; a reader knows only then that they are too many.
double markupEffort(const QString &text)
{
    double marks = 0;
    double comparisons = 0;
    double attributes = 0; // since the last "<"
    QChar before;
    for (const QChar character : text) {
        if (character == u'<') {
            comparisons += attributes * attributes;
            attributes = 0;
            ++marks;
        } else if (character == u'&') {
            ++marks;
        } else if ((character == u'"' || character == u'\'') && before == u'=') {
            ++attributes;
            ++marks;
        } else if (character == u' ' || character == u'\t' || character == u'\r'
                   || character == u'\n') {
            continue;
        }
        before = character;
    }
    return ofAMark * marks + ofTwoAttributes * (comparisons + attributes * attributes);
}

/// Behind the next \a end from \a at on, or behind everything.
qsizetype behind(QLatin1String end, QStringView text, qsizetype at)
{
    const qsizetype found = text.indexOf(end, at);
    return found < 0 ? text.size() : found + end.size();
}

/// Behind the comment or the instruction that begins at \a at; \a at if none does.
qsizetype behindRemark(QStringView text, qsizetype at)
{
    const QStringView rest = text.mid(at);
    if (rest.startsWith(QLatin1String("<!--")))
        return behind(QLatin1String("-->"), text, at + 4);
    return rest.startsWith(QLatin1String("<?")) ? behind(QLatin1String("?>"), text, at) : at;
}

/// Behind the declaration that begins at \a at, with all those in it.
qsizetype behindDeclaration(QStringView text, qsizetype at)
{
    int open = 0;
    do {
        const qsizetype next = behindRemark(text, at);
        const QChar character = text.at(at);
        if (next > at) {
            at = next;
            continue;
        }
        ++at;
        if (character == u'"')
            at = behind(QLatin1String("\""), text, at);
        if (character == u'\'')
            at = behind(QLatin1String("'"), text, at);
        open += int(character == u'<') - int(character == u'>');
    } while (open > 0 && at < text.size());
    return at;
}

/// Behind the spaces, comments and instructions that begin at \a at.
qsizetype behindRemarks(QStringView text, qsizetype at)
{
    while (at < text.size()) {
        const qsizetype next = text.at(at).isSpace() ? at + 1 : behindRemark(text, at);
        if (next == at)
            break;
        at = next;
    }
    return at;
}

bool hasDocumentType(QStringView text, qsizetype at)
{
    return text.mid(at).startsWith(QLatin1String("<!DOCTYPE"));
}

} // namespace

QString drawingText(const QByteArray &bytes, DrawingAllowance &allowance)
{
    const QByteArray drawing = isCompressed(bytes) ? uncompressed(bytes, allowance) : bytes;
    if (!isCompressed(bytes))
        allowance.effort -= ofACharacterOfText * double(bytes.size());
    const auto encoding = encodingOf(drawing);
    if (!encoding || !mayRead(drawing.size(), allowance))
        return {};
    QStringDecoder decoder(*encoding);
    const QString text = decoder.decode(drawing);
    return !decoder.hasError() && allowance.spend(markupEffort(text)) ? text : QString();
}

QString withoutDocumentType(const QString &text)
{
    const qsizetype start = behindRemarks(text, 0);
    if (!hasDocumentType(text, start))
        return text;
    const qsizetype end = behindDeclaration(text, start);
    if (hasDocumentType(text, behindRemarks(text, end)))
        return {};
    return QString(text).remove(start, end - start);
}

} // namespace quenara
