#include "ContainedDrawing.h"

#include "ImageBytes.h"
#include "PaintingEffort.h"

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

// More than any drawing has, since each of them is compared with all others: the attributes of one
// element, the namespaces of a drawing, the stops of a gradient, the elements times the rules.
constexpr int mostAttributes = 1000;
constexpr qsizetype mostNamespaces = 1000;
constexpr std::size_t mostStops = 1000;
constexpr double mostMatches = 5e7;

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

/// Whether an element may have, or the document type declare, too many attributes: a reader knows
/// only once it has compared them. Counted are the beginnings of values between two "<", and the
/// words of all declarations. Some encodings have zeros between the characters.
bool mayHaveTooManyAttributes(const QByteArray &bytes)
{
    constexpr int wordsOfADeclaration = 3;
    int values = 0;
    int words = 0;
    int length = 0; // since the last "<"
    char before = 0;
    bool isDeclaration = false;
    bool isAfterSpace = false;
    for (const char character : bytes) {
        if (character == '\0')
            continue;
        if (QByteArrayView(" \t\r\n").contains(character)) {
            isAfterSpace = true;
            continue;
        }
        const bool isStart = character == '<';
        const bool isQuote = character == '"' || character == '\'';
        length = isStart ? 0 : length + 1;
        values = isStart ? 0 : values + int(isQuote && before == '=');
        isDeclaration =
            !isStart && (isDeclaration || (length == 2 && before == '!' && character == 'A'));
        words += int(isDeclaration && isAfterSpace);
        if (values > mostAttributes || words > wordsOfADeclaration * mostAttributes)
            return true;
        before = character;
        isAfterSpace = false;
    }
    return false;
}

/// The text of a document without its document type, if that declares entities or attributes;
/// nothing if it declares neither.
std::optional<QString> withoutDeclarations(const QByteArray &bytes)
{
    QXmlStreamReader reader(bytes);
    qint64 before = 0;
    while (!reader.atEnd() && !reader.isStartElement() && !reader.isDTD()) {
        before = reader.characterOffset();
        reader.readNext();
    }
    const bool declares = reader.isDTD()
        && (!reader.entityDeclarations().isEmpty()
            || reader.text().contains(QLatin1String("<!ATTLIST")));
    if (!declares)
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
    /// What is painted for an element.
    struct Cost
    {
        double elements = 0;
        double characters = 0;
    };
    struct Element
    {
        Cost own; ///< without what is in it
        bool isText = false;
        std::vector<int> children = {};
        QStringList references = {}; ///< identifiers of what it has painted, too
        std::optional<Cost> cost = std::nullopt; ///< once known
    };

    bool take(QXmlStreamReader &reader);
    bool start(const QXmlStreamReader &reader);
    void writeStyle();
    void writeAttribute(const QStringView &element, const QXmlStreamAttribute &attribute);
    QString reference(const QStringView &element, const QString &target);
    QString embeddedImage(const QString &dataUrl);
    void noteReferences(const QString &value);
    Cost cost(int index, int depth);
    bool isAllowed(const Cost &cost) const;
    Element &opened() { return m_elements.at(std::size_t(m_open.back())); }

    DrawingAllowance &m_allowance;
    QByteArray m_result;
    QXmlStreamWriter m_writer{&m_result};
    std::vector<Element> m_elements;
    std::vector<int> m_open; ///< the element that is read and those that it is in
    QMultiHash<QString, int> m_named;
    QString m_style; ///< rules that are read and not yet written
    qsizetype m_ruleCount = 0;
    qsizetype m_namespaceCount = 0;
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
    const double matches = double(m_elements.size()) * double(m_ruleCount);
    if (reader.hasError() || m_elements.empty() || matches > mostMatches)
        return {};
    const Cost painted = cost(0, 0);
    if (!isAllowed(painted))
        return {};
    m_allowance.elements -= qint64(painted.elements);
    m_allowance.characters -= qint64(painted.characters);
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
            constexpr double charactersOfPaths = 64; // that take as long as one of a text
            if (opened().isText)
                opened().own.characters += charactersOfPaths * double(reader.text().size());
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
    m_ruleCount += m_style.count(u'{') + m_style.count(u',');
    if (!m_style.isEmpty())
        m_writer.writeCharacters(withoutAddresses(std::exchange(m_style, {})));
}

bool Rewriting::start(const QXmlStreamReader &reader)
{
    writeStyle();
    const int index = int(m_elements.size());
    if (m_open.size() >= deepestNesting || index >= m_allowance.elements)
        return false;
    const QStringView name = reader.name();
    const bool isStop = name == QLatin1String("stop");
    m_namespaceCount += reader.namespaceDeclarations().size();
    if (m_namespaceCount > mostNamespaces)
        return false;
    if (!m_open.empty()) {
        opened().children.push_back(index);
        if (isStop && opened().children.size() > mostStops)
            return false;
    }
    m_open.push_back(index);
    m_isStyle = name == QLatin1String("style");
    // What others are only coloured with is not painted.
    const bool isPainted = !isStop && !name.endsWith(QLatin1String("Gradient"));
    m_elements.push_back({.own = {.elements = isPainted ? 1.0 : 0.0},
                          .isText = name == QLatin1String("text") || name == QLatin1String("tspan")
                              || name == QLatin1String("textArea")});

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
    if (name == QLatin1String("d") || name == QLatin1String("points"))
        opened().own.characters += double(value.size());
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
            opened().references.append(target.mid(1));
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
    const double effortBefore = m_allowance.paintingEffort;
    ImageBytes image(QByteArray::fromBase64(dataUrl.mid(start).toLatin1()), m_allowance);
    ++m_allowance.imagesWithin;
    // It is painted here, where what is painted is counted, and where it is shown.
    constexpr double furtherTimes = 2;
    m_allowance.paintingEffort -= furtherTimes * (effortBefore - m_allowance.paintingEffort);
    const QSize size = image.reader().size();
    const qint64 pixels = qint64(size.width()) * size.height();
    if (!size.isValid() || pixels > m_allowance.imagePixels)
        return {};
    m_allowance.imagePixels -= pixels;
    constexpr double leastElements = 10; // that take as long as an image
    constexpr double pixelsOfOne = 16384;
    opened().own.elements += leastElements + double(pixels) / pixelsOfOne;
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
        opened().references.append(match.captured(1).trimmed());
}

/// What is painted for the element at \a index; no end of it if it refers to what it is in, refers
/// to others too deeply or comes to more than is allowed.
Rewriting::Cost Rewriting::cost(int index, int depth)
{
    constexpr Cost endless{.elements = std::numeric_limits<double>::infinity()};
    Element &element = m_elements.at(std::size_t(index));
    if (element.cost)
        return *element.cost;
    if (depth > 2 * deepestNesting)
        return endless;
    element.cost = endless; // while it is counted
    Cost sum = element.own;
    const auto add = [&](int painted) {
        const Cost more = cost(painted, depth + 1);
        sum.elements += more.elements;
        sum.characters += more.characters;
        return isAllowed(sum);
    };
    if (!std::all_of(element.children.cbegin(), element.children.cend(), add))
        return endless;
    for (const QString &reference : std::as_const(element.references)) {
        const auto [first, last] = std::as_const(m_named).equal_range(reference);
        if (!std::all_of(first, last, add))
            return endless;
    }
    element.cost = sum;
    return sum;
}

bool Rewriting::isAllowed(const Cost &cost) const
{
    return cost.elements <= double(m_allowance.elements)
        && cost.characters <= double(m_allowance.characters);
}

} // namespace

namespace {

QByteArray rewrittenDrawing(const QByteArray &bytes, DrawingAllowance &allowance)
{
    const QByteArray drawing = isCompressed(bytes) ? uncompressed(bytes) : bytes;
    if (drawing.size() > largestDrawing || mayHaveTooManyAttributes(drawing))
        return {};
    Rewriting rewriting(allowance);
    if (const std::optional<QString> text = withoutDeclarations(drawing)) {
        UnexpandedEntities entities;
        QXmlStreamReader reader(*text);
        reader.setEntityResolver(&entities);
        return rewriting.rewritten(reader);
    }
    QXmlStreamReader reader(drawing);
    return rewriting.rewritten(reader);
}

} // namespace

QByteArray containedDrawing(const QByteArray &bytes, DrawingAllowance &allowance)
{
    QByteArray drawing = rewrittenDrawing(bytes, allowance);
    if (!drawing.isEmpty())
        allowance.paintingEffort -= paintingEffort(drawing, allowance.paintingEffort);
    return allowance.paintingEffort < 0 ? QByteArray() : drawing;
}

} // namespace quenara
