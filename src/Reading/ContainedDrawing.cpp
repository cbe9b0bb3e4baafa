#include "ContainedDrawing.h"

#include "DrawingText.h"
#include "ImageBytes.h"
#include "PaintedParts.h"
#include "PaintingEffort.h"
#include "StyleRules.h"

#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <utility>
#include <vector>

namespace quenara {

namespace {

constexpr auto drawingNamespace = "http://www.w3.org/2000/svg";
constexpr std::size_t deepestNesting = 200; // of elements

// Nanoseconds of reading a drawing three times and painting it twice, beyond its text and its
// pixels.
constexpr double ofAPart = 3000;
constexpr double ofANamespace = 2; ///< of an attribute with a namespace that may be its own
constexpr double ofAName = 1000;
constexpr double ofADeclaration = 1400; ///< in a style
constexpr double ofAPixel = 20; ///< of an image

/// More than any gradient has, since each of its stops is compared with all others.
constexpr int mostStops = 1000;

/// Has an entity stand for its own name.
class UnexpandedEntities : public QXmlStreamEntityResolver
{
public:
    QString resolveUndeclaredEntity(const QString &name) override { return name; }
};

bool isText(QStringView name)
{
    return name == QLatin1String("text") || name == QLatin1String("tspan")
        || name == QLatin1String("textArea");
}

/// What one element by itself has painted, as many elements as take as long.
double elementsOf(QStringView name)
{
    // What others are only coloured with is not painted.
    if (name == QLatin1String("stop") || name.endsWith(QLatin1String("Gradient")))
        return 0;
    constexpr double elementsOfAText = 20;
    return isText(name) ? elementsOfAText : 1;
}

/// One drawing while it is rewritten.
class Rewriting
{
public:
    explicit Rewriting(DrawingAllowance &allowance) : m_allowance(allowance) {}

    QByteArray rewritten(QXmlStreamReader &reader);

private:
    struct OpenElement
    {
        int part = 0;
        bool isText = false;
        bool isStyle = false; ///< or in a style
        int stops = 0; ///< in it
    };

    bool take(QXmlStreamReader &reader);
    void takeText(const QString &text);
    bool start(const QXmlStreamReader &reader);
    void open(QStringView name);
    void writeStyle();
    void writeAttribute(const QStringView &element, const QXmlStreamAttribute &attribute);
    QString reference(const QStringView &element, const QString &target);
    QString embeddedImage(const QString &dataUrl);
    void note(QStringView name, const QString &value);
    bool takeNames(qsizetype count);
    int part() const { return m_open.back().part; }

    DrawingAllowance &m_allowance;
    QByteArray m_result;
    QXmlStreamWriter m_writer{&m_result};
    PaintedParts m_parts;
    StyleRules m_rules;
    std::vector<OpenElement> m_open; ///< the element that is read and those that it is in
    qint64 m_elementCount = 0;
    qsizetype m_namespaceCount = 0;
    QString m_style; ///< rules that are read and not yet written
};

QByteArray Rewriting::rewritten(QXmlStreamReader &reader)
{
    m_writer.writeStartDocument(); // by which Qt knows a drawing whose first element has a prefix
    while (!reader.atEnd()) {
        reader.readNext();
        if (!take(reader) || !m_allowance.spend(0))
            return {};
    }
    if (reader.hasError() || m_elementCount == 0 || !m_allowance.spend(m_rules.effort()))
        return {};
    const PaintedParts::Cost most{.elements = double(m_allowance.elements),
                                  .characters = double(m_allowance.characters)};
    const PaintedParts::Cost painted = m_parts.painted(0, most);
    if (painted.elements > most.elements || painted.characters > most.characters)
        return {};
    m_allowance.elements -= qint64(painted.elements);
    m_allowance.characters -= qint64(painted.characters);
    return m_allowance.spend(ofAPart * painted.elements) ? m_result : QByteArray();
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
        m_writer.writeEndElement();
        return true;
    case QXmlStreamReader::Characters:
        if (!m_open.empty())
            takeText(reader.text().toString());
        return true;
    case QXmlStreamReader::DTD:
        return false;
    default:
        return true;
    }
}

void Rewriting::takeText(const QString &text)
{
    constexpr double charactersOfPaths = 64; // that take as long as one of a text
    if (m_open.back().isStyle) {
        m_style += text;
        return;
    }
    if (m_open.back().isText)
        m_parts.addTo(part(), {.characters = charactersOfPaths * double(text.size())});
    m_writer.writeCharacters(text);
}

/// Rules may come in several pieces, none of which shows an address.
void Rewriting::writeStyle()
{
    if (!m_style.isEmpty())
        m_writer.writeCharacters(m_rules.add(std::exchange(m_style, {})));
}

bool Rewriting::start(const QXmlStreamReader &reader)
{
    writeStyle();
    const QStringView name = reader.name();
    const QXmlStreamNamespaceDeclarations spaces = reader.namespaceDeclarations();
    const QXmlStreamAttributes attributes = reader.attributes();
    m_namespaceCount += spaces.size();
    const auto lookups = double(m_namespaceCount) * double(1 + attributes.size());
    if (m_open.size() >= deepestNesting || ++m_elementCount > m_allowance.elements
        || !m_allowance.spend(ofANamespace * lookups))
        return false;
    if (!m_open.empty() && name == QLatin1String("stop") && ++m_open.back().stops > mostStops)
        return false;
    open(name);

    // Newer releases of Qt take for a drawing only what begins with the bare name.
    const bool losesPrefix =
        !reader.prefix().isEmpty() && reader.namespaceUri() == QLatin1String(drawingNamespace);
    m_writer.writeStartElement((losesPrefix ? name : reader.qualifiedName()).toString());
    if (losesPrefix)
        m_writer.writeAttribute(QStringLiteral("xmlns"), QString::fromLatin1(drawingNamespace));
    for (const QXmlStreamNamespaceDeclaration &space : spaces) {
        const QString prefix = space.prefix().toString();
        if (losesPrefix && prefix.isEmpty())
            continue;
        m_writer.writeAttribute(prefix.isEmpty() ? QStringLiteral("xmlns")
                                                 : QStringLiteral("xmlns:") + prefix,
                                space.namespaceUri().toString());
    }
    for (const QXmlStreamAttribute &attribute : attributes)
        writeAttribute(name, attribute);
    return true;
}

void Rewriting::open(QStringView name)
{
    const int opened = m_parts.add({.elements = elementsOf(name)});
    const bool isInStyle = !m_open.empty() && m_open.back().isStyle;
    if (!m_open.empty())
        m_parts.lead(part(), opened);
    m_open.push_back({.part = opened,
                      .isText = isText(name),
                      .isStyle = isInStyle || name == QLatin1String("style")});
    m_rules.addElement(int(m_open.size()));
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
    if (name == QLatin1String("href") || name == QLatin1String("src")) {
        value = reference(element, value.trimmed());
        if (value.isEmpty())
            return;
    } else {
        value = withoutAddresses(value);
        note(name, value);
    }
    m_writer.writeAttribute(attribute.qualifiedName().toString(), value);
}

/// What the value means to others, and what it takes.
void Rewriting::note(QStringView name, const QString &value)
{
    static const QRegularExpression address(QStringLiteral(R"(url\(\s*+["']?+\s*+#([^"')]*))"),
                                            QRegularExpression::CaseInsensitiveOption);
    if (name == QLatin1String("id") && takeNames(1)) {
        m_parts.lead(m_parts.named(value), part());
        m_rules.addNames(u'#', value);
    } else if (name == QLatin1String("class") && takeNames(1 + value.count(u' '))) {
        m_rules.addNames(u'.', value);
    } else if (name == QLatin1String("d") || name == QLatin1String("points")) {
        m_parts.addTo(part(), {.characters = double(value.size())});
    } else if (name == QLatin1String("style")) {
        m_allowance.effort -= ofADeclaration * double(value.count(u';'));
    }
    if (!value.contains(u'('))
        return;
    for (const QRegularExpressionMatch &match : address.globalMatch(value)) {
        if (takeNames(1))
            m_parts.lead(part(), m_parts.named(match.captured(1).trimmed()));
    }
}

bool Rewriting::takeNames(qsizetype count)
{
    return m_allowance.spend(ofAName * double(count));
}

/// The reference as it may stay; empty if it may not.
QString Rewriting::reference(const QStringView &element, const QString &target)
{
    if (target.startsWith(u'#')) {
        // A link leads there when it is clicked; nothing is painted for it.
        if (element != QLatin1String("a") && takeNames(1))
            m_parts.lead(part(), m_parts.named(target.mid(1)));
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
    const double effortBefore = m_allowance.effort;
    ImageBytes image(QByteArray::fromBase64(dataUrl.mid(start).toLatin1()), m_allowance);
    ++m_allowance.imagesWithin;
    // It is read and painted here, where what is painted is counted, and where it is shown.
    constexpr double furtherTimes = 2;
    const double furtherEffort = furtherTimes * (effortBefore - m_allowance.effort);
    const QSize size = image.reader().size();
    const qint64 pixels = qint64(size.width()) * size.height();
    if (!m_allowance.spend(furtherEffort) || !size.isValid() || pixels > m_allowance.imagePixels
        || !m_allowance.spend(ofAPixel * double(pixels)))
        return {};
    m_allowance.imagePixels -= pixels;
    constexpr double leastElements = 10; // that take as long as an image
    constexpr double pixelsOfOne = 16384;
    m_parts.addTo(part(), {.elements = leastElements + double(pixels) / pixelsOfOne});
    const QString format = QString::fromLatin1(image.reader().format());
    if (image.reader().read().isNull())
        return {};
    return QStringLiteral("data:image/%1;base64,").arg(format)
        + QString::fromLatin1(image.bytes().toBase64());
}

QByteArray rewrittenDrawing(const QByteArray &bytes, DrawingAllowance &allowance)
{
    const QString text = drawingText(bytes, allowance);
    const QString content = withoutDocumentType(text);
    UnexpandedEntities entities;
    QXmlStreamReader reader(content);
    if (content.size() < text.size())
        reader.setEntityResolver(&entities);
    return Rewriting(allowance).rewritten(reader);
}

} // namespace

QByteArray containedDrawing(const QByteArray &bytes, DrawingAllowance &allowance)
{
    const QByteArray drawing = rewrittenDrawing(bytes, allowance);
    if (drawing.isEmpty())
        return {};
    allowance.paintingEffort = paintingEffort(drawing, allowance.effort);
    return allowance.spend(allowance.paintingEffort) ? drawing : QByteArray();
}

} // namespace quenara
