#include "PdfPages.h"

#include "Fonts.h"
#include "RenderCaches.h"
#include "SlideRendererView.h"

#include <QPageLayout>

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

constexpr int pointsAnInch = 72;
constexpr int pixelsAPoint = 2; ///< of a page that one slide fills
constexpr double hairline = 0.5 * HandoutLayout::resolution / pointsAnInch;
constexpr double hairlineOpacity = 0.35;

int columnsOf(ExportFormat format)
{
    switch (format) {
    case ExportFormat::fourPerPage:
        return 2;
    case ExportFormat::ninePerPage:
        return 3;
    case ExportFormat::onePerPage:
    case ExportFormat::pictures:
        break;
    }
    return 0;
}

/// What the slide fills of the wall, in points.
QSize pageOf(const Slide &slide)
{
    const QSizeF wall(exportedPixels);
    const QSizeF filled = SlideRendererView{.slide = slide}.slideRect({{}, wall}).size();
    const auto points = [](double pixels) {
        return std::max(1, int(std::lround(pixels / pixelsAPoint)));
    };
    const QSizeF shown = filled.isEmpty() ? wall : filled;
    return {points(shown.width()), points(shown.height())};
}

/// Draws one line of \a text, or as much of it as there is room for.
void drawLine(QPainter &painter, const QRectF &line, const QString &text, TextFontWeight weight,
              TextAlignmentValue alignment, RenderCaches &caches)
{
    TextElementProperties properties;
    properties.text = text.first(std::min(text.size(), TextBlock::longestText)).simplified();
    properties.fontFamily = systemFontFamily();
    properties.fontSize = textSizeIn(line);
    properties.weight = weight;
    properties.alignment = alignment;
    painter.save();
    painter.translate(line.topLeft());
    painter.setPen(Qt::black);
    caches.textBlocks.block(properties, line.size(), {.smallestFit = 1, .lineMaximum = 1})
        ->draw(painter, caches);
    painter.restore();
}

} // namespace

PdfPages::PdfPages(const QString &path, const Content &content) : m_content(content), m_file(path)
{
    const int columns = columnsOf(content.format);
    m_writer.setCreator(QStringLiteral("Quenara"));
    m_writer.setTitle(content.projectName);
    m_writer.setResolution(columns > 0 ? HandoutLayout::resolution : pixelsAPoint * pointsAnInch);
    m_writer.setPageMargins({});
    if (columns > 0) {
        m_layout = HandoutLayout::of(content.paper, columns);
        m_writer.setPageSize(content.paper);
        m_writer.setPageOrientation(QPageLayout::Landscape);
    }
}

PdfPages::~PdfPages()
{
    m_file.cancelWriting(); // unless it is finished
}

bool PdfPages::open()
{
    return m_file.open(QIODevice::WriteOnly);
}

void PdfPages::paint(const FlattenedSlide &slide, RenderCaches &caches)
{
    if (m_layout.cells.isEmpty()) {
        paintWholePage(slide, caches);
    } else {
        paintCell(slide, caches);
    }
    ++m_painted;
}

void PdfPages::nextPage()
{
    if (m_painter.isActive()) {
        m_writer.newPage();
    } else {
        m_painter.begin(&m_writer);
    }
}

void PdfPages::paintWholePage(const FlattenedSlide &slide, RenderCaches &caches)
{
    const QSize points = pageOf(slide.slide);
    m_writer.setPageSize(
        QPageSize(QSizeF(points), QPageSize::Point, QString(), QPageSize::ExactMatch));
    nextPage();
    const QRectF page(QPointF(), QSizeF(points * pixelsAPoint));
    m_painter.fillRect(page, Qt::black); // behind a slide that is translucent
    SlideRendererView{.slide = slide.slide}.paint(m_painter, page, caches);
}

void PdfPages::paintCell(const FlattenedSlide &slide, RenderCaches &caches)
{
    const qsizetype place = m_painted % m_layout.cells.size();
    if (place == 0) {
        nextPage();
        paintFooter(caches);
    }
    const HandoutLayout::Cell &cell = m_layout.cells.at(place);
    const SlideRendererView view{.slide = slide.slide};
    QRectF picture = view.slideRect(cell.picture);
    picture.moveLeft(cell.picture.left()); // where its titles begin
    picture = QRectF(picture.toRect());
    m_painter.fillRect(picture, Qt::black);
    view.paint(m_painter, picture, caches);
    m_painter.save();
    m_painter.setOpacity(hairlineOpacity);
    m_painter.setPen(QPen(Qt::black, hairline));
    m_painter.drawRect(picture);
    m_painter.restore();
    const auto draw = [&](const QRectF &line, const QString &text, TextFontWeight weight) {
        drawLine(m_painter, line, text, weight, TextAlignmentValue::left, caches);
    };
    draw(cell.section, QStringLiteral("%1. %2").arg(m_painted + 1).arg(slide.serviceItemTitle),
         TextFontWeight::semibold);
    draw(cell.slide, slide.slide.title, TextFontWeight::regular);
}

void PdfPages::paintFooter(RenderCaches &caches)
{
    const qsizetype cells = m_layout.cells.size();
    const qsizetype pages = (m_content.slideCount + cells - 1) / cells;
    constexpr double nameShare = 0.75;
    QRectF name = m_layout.footer;
    name.setWidth(name.width() * nameShare);
    QRectF page = m_layout.footer;
    page.setLeft(name.right());
    drawLine(m_painter, name, m_content.projectName, TextFontWeight::regular,
             TextAlignmentValue::left, caches);
    drawLine(m_painter, page, QStringLiteral("Page %1 of %2").arg(m_painted / cells + 1).arg(pages),
             TextFontWeight::regular, TextAlignmentValue::right, caches);
}

/// The writer itself tells of no failure.
bool PdfPages::write()
{
    return m_file.error() == QFileDevice::NoError;
}

bool PdfPages::finish()
{
    m_painter.end();
    return write() && m_file.commit();
}

} // namespace quenara
