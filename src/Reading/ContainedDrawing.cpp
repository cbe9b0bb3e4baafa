#include "ContainedDrawing.h"

#include "ImageBytes.h"

#include <QMultiHash>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>
#include <vector>
#include <zlib.h>

namespace quenara {

namespace {

constexpr qsizetype largestDrawing = qsizetype(64) << 20U; // bytes, uncompressed
constexpr int deepestNesting = 200; // of elements, and of what refers to one another

bool isCompressed(const QByteArray &bytes)
{
    return bytes.startsWith("\x1f\x8b");
}

/// Empty if the bytes are damaged or hold more than the largest drawing.
QByteArray uncompressed(QByteArray bytes)
{
    z_stream stream{};
    constexpr int gzip = 16;
    if (inflateInit2(&stream, MAX_WBITS + gzip) != Z_OK)
        return {};
    stream.next_in = reinterpret_cast<Bytef *>(bytes.data());
    stream.avail_in = uInt(bytes.size());
    QByteArray whole;
    int status = Z_OK;
    while (status == Z_OK && whole.size() <= largestDrawing) {
        QByteArray piece(65536, Qt::Uninitialized);
        stream.next_out = reinterpret_cast<Bytef *>(piece.data());
        stream.avail_out = uInt(piece.size());
        status = inflate(&stream, Z_NO_FLUSH);
        whole.append(piece.constData(), piece.size() - qsizetype(stream.avail_out));
    }
    inflateEnd(&stream);
    return status == Z_STREAM_END ? whole : QByteArray();
}

/// Has an entity stand for its own name.
class UnexpandedEntities : public QXmlStreamEntityResolver
{
public:
    QString resolveUndeclaredEntity(const QString &name) override { return name; }
};

/// The text of a document without its document type, if that declares entities; nothing if it
/// declares none.
std::optional<QString> withoutEntities(const QByteArray &bytes)
{
    QXmlStreamReader reader(bytes);
    qint64 before = 0;
    while (!reader.atEnd() && !reader.isStartElement() && !reader.isDTD()) {
        before = reader.characterOffset();
        reader.readNext();
    }
    if (!reader.isDTD() || reader.entityDeclarations().isEmpty())
        return std::nullopt;
    QStringDecoder decoder(reader.documentEncoding().toLatin1().constData());
    if (!decoder.isValid())
        decoder = QStringDecoder(QStringDecoder::Utf8);
    QString text = decoder.decode(bytes);
    // The reader may have looked at the first signs of what comes next.
    const qsizetype start =
        text.indexOf(QLatin1String("<!DOCTYPE"), std::max<qsizetype>(0, before - 2));
    return start < 0 ? QString() : text.remove(start, reader.characterOffset() - start);
}

/// Style rules or the value of an attribute, with every outer address made the name of a part that
/// the drawing does not have. Nothing is left of what may hide one behind escapes.
QString withoutAddresses(const QString &text)
{
    static const QRegularExpression import(QStringLiteral("@import[^;]*;?"),
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression address(
        QStringLiteral(R"(((?:url|src)\(\s*+["']?+\s*+)(?!#|data:))"),
        QRegularExpression::CaseInsensitiveOption);
    if (!text.contains(u'(') && !text.contains(u'@'))
        return text;
    if (text.contains(u'\\'))
        return {};
    return QString(text).remove(import).replace(address, QStringLiteral("\\1#"));
}

/// One drawing while it is rewritten.
class Rewriting
{
public:
    explicit Rewriting(DrawingAllowance &allowance) : m_allowance(allowance) {}

    QByteArray rewritten(QXmlStreamReader &reader);

private:
    struct Element
    {
        bool isPainted = true; ///< and not only a colour that others are painted with
        std::vector<int> children;
        QStringList references; ///< identifiers of what it has painted, too
        std::optional<double> cost = std::nullopt; ///< elements painted for it, once known
    };

    bool take(QXmlStreamReader &reader);
    bool start(const QXmlStreamReader &reader);
    void writeStyle();
    void writeAttribute(const QStringView &element, const QXmlStreamAttribute &attribute);
    QString reference(const QStringView &element, const QString &target);
    QString embeddedImage(const QString &dataUrl);
    void noteReferences(const QString &value);
    double cost(int index, int depth);

    DrawingAllowance &m_allowance;
    QByteArray m_result;
    QXmlStreamWriter m_writer{&m_result};
    std::vector<Element> m_elements;
    std::vector<int> m_open; ///< the element that is read and those that it is in
    QMultiHash<QString, int> m_named;
    QString m_style; ///< rules that are read and not yet written
    bool m_isStyle = false;
};

QByteArray Rewriting::rewritten(QXmlStreamReader &reader)
{
    m_writer.writeStartDocument(); // by which Qt knows a drawing whose first element has a prefix
    while (!reader.atEnd()) {
        reader.readNext();
        if (!take(reader))
            return {};
    }
    if (reader.hasError() || m_elements.empty())
        return {};
    const double painted = cost(0, 0);
    if (painted > double(m_allowance.elements))
        return {};
    m_allowance.elements -= qint64(painted);
    return m_result;
}

/// False if the drawing holds what it may not, or more than it may.
bool Rewriting::take(QXmlStreamReader &reader)
{
    switch (reader.tokenType()) {
    case QXmlStreamReader::StartElement:
        return start(reader);
    case QXmlStreamReader::EndElement:
        writeStyle();
        m_open.pop_back();
        m_isStyle = false;
        m_writer.writeEndElement();
        return true;
    case QXmlStreamReader::Characters:
        if (m_isStyle) {
            m_style += reader.text();
        } else if (!m_open.empty()) {
            m_writer.writeCharacters(reader.text().toString());
        }
        return true;
    case QXmlStreamReader::DTD:
        return reader.entityDeclarations().isEmpty();
    default:
        return true;
    }
}

/// Rules may come in several pieces, none of which shows an address.
void Rewriting::writeStyle()
{
    if (!m_style.isEmpty())
        m_writer.writeCharacters(withoutAddresses(std::exchange(m_style, {})));
}

bool Rewriting::start(const QXmlStreamReader &reader)
{
    writeStyle();
    const int index = int(m_elements.size());
    if (m_open.size() >= deepestNesting || index >= m_allowance.elements)
        return false;
    if (!m_open.empty())
        m_elements.at(std::size_t(m_open.back())).children.push_back(index);
    m_open.push_back(index);
    const QStringView name = reader.name();
    m_isStyle = name == QLatin1String("style");
    m_elements.push_back(
        {.isPainted = name != QLatin1String("stop") && !name.endsWith(QLatin1String("Gradient")),
         .children = {},
         .references = {}});

    m_writer.writeStartElement(reader.qualifiedName().toString());
    for (const QXmlStreamNamespaceDeclaration &space : reader.namespaceDeclarations()) {
        const QString prefix = space.prefix().toString();
        m_writer.writeAttribute(prefix.isEmpty() ? QStringLiteral("xmlns")
                                                 : QStringLiteral("xmlns:") + prefix,
                                space.namespaceUri().toString());
    }
    for (const QXmlStreamAttribute &attribute : reader.attributes())
        writeAttribute(name, attribute);
    return true;
}

void Rewriting::writeAttribute(const QStringView &element, const QXmlStreamAttribute &attribute)
{
    const QStringView name = attribute.name();
    QString value = attribute.value().toString();
    // An animation might set a reference later, a base have one lead elsewhere.
    const bool isAnimatedReference = name == QLatin1String("attributeName")
        && value.contains(QLatin1String("href"), Qt::CaseInsensitive);
    if (name == QLatin1String("base") || isAnimatedReference)
        return;
    if (name == QLatin1String("id"))
        m_named.insert(value, m_open.back());
    if (name == QLatin1String("href") || name == QLatin1String("src")) {
        value = reference(element, value.trimmed());
        if (value.isEmpty())
            return;
    } else {
        value = withoutAddresses(value);
        noteReferences(value);
    }
    m_writer.writeAttribute(attribute.qualifiedName().toString(), value);
}

/// The reference as it may stay; empty if it may not.
QString Rewriting::reference(const QStringView &element, const QString &target)
{
    if (target.startsWith(u'#')) {
        // A link leads there when it is clicked; nothing is painted for it.
        if (element != QLatin1String("a"))
            m_elements.at(std::size_t(m_open.back())).references.append(target.mid(1));
        return target;
    }
    const bool isImage = element == QLatin1String("image") && target.startsWith(u"data:");
    return isImage ? embeddedImage(target) : QString();
}

/// The image in a data URL, written again. Empty unless it can be decoded: Qt would look for a file
/// of the data URL's name.
QString Rewriting::embeddedImage(const QString &dataUrl)
{
    const qsizetype start = dataUrl.indexOf(u',') + 1;
    if (start == 0 || !dataUrl.first(start).endsWith(QLatin1String(";base64,"))
        || m_allowance.imagesWithin == 0)
        return {};
    --m_allowance.imagesWithin;
    ImageBytes image(QByteArray::fromBase64(dataUrl.mid(start).toLatin1()), m_allowance);
    ++m_allowance.imagesWithin;
    const QSize size = image.reader().size();
    const qint64 pixels = qint64(size.width()) * size.height();
    if (!size.isValid() || pixels > m_allowance.imagePixels)
        return {};
    m_allowance.imagePixels -= pixels;
    const QString format = QString::fromLatin1(image.reader().format());
    if (image.reader().read().isNull())
        return {};
    return QStringLiteral("data:image/%1;base64,").arg(format)
        + QString::fromLatin1(image.bytes().toBase64());
}

void Rewriting::noteReferences(const QString &value)
{
    static const QRegularExpression part(QStringLiteral(R"(url\(\s*["']?\s*#([^"')]*))"),
                                         QRegularExpression::CaseInsensitiveOption);
    if (!value.contains(u'('))
        return;
    for (const QRegularExpressionMatch &match : part.globalMatch(value))
        m_elements.at(std::size_t(m_open.back())).references.append(match.captured(1).trimmed());
}

/// How many elements are painted for the one at \a index; no end of them if it refers to what it is
/// in, or refers to others too deeply.
double Rewriting::cost(int index, int depth)
{
    constexpr double endless = std::numeric_limits<double>::infinity();
    Element &element = m_elements.at(std::size_t(index));
    if (element.cost)
        return *element.cost;
    if (depth > 2 * deepestNesting)
        return endless;
    element.cost = endless; // while it is counted
    double sum = element.isPainted ? 1 : 0;
    for (const int child : element.children)
        sum += cost(child, depth + 1);
    for (const QString &reference : std::as_const(element.references)) {
        for (const int target : m_named.values(reference))
            sum += cost(target, depth + 1);
    }
    element.cost = sum;
    return sum;
}

} // namespace

QByteArray containedDrawing(const QByteArray &bytes, DrawingAllowance &allowance)
{
    const QByteArray drawing = isCompressed(bytes) ? uncompressed(bytes) : bytes;
    if (drawing.size() > largestDrawing)
        return {};
    Rewriting rewriting(allowance);
    if (const std::optional<QString> text = withoutEntities(drawing)) {
        UnexpandedEntities entities;
        QXmlStreamReader reader(*text);
        reader.setEntityResolver(&entities);
        return rewriting.rewritten(reader);
    }
    QXmlStreamReader reader(drawing);
    return rewriting.rewritten(reader);
}

} // namespace quenara
