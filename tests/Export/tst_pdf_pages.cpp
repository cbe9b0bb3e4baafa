#include "ExportedShow.h"
#include "FullDisk.h"
#include "Images.h"
#include "PdfPages.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_pdf_pages {

namespace {

constexpr CanvasSize square{1000, 1000};

PdfPages::Content content(const QList<FlattenedSlide> &slides, ExportFormat format)
{
    return {.projectName = u"Sunday"_s,
            .slideCount = slides.size(),
            .format = format,
            .paper = QPageSize(QPageSize::A4)};
}

/// A document in a folder that goes with it.
struct Document
{
    QTemporaryDir folder;
    QString path = folder.filePath(u"show.pdf"_s);

    Document(const QList<FlattenedSlide> &slides, ExportFormat format,
             const Caller &caller = Caller::current())
    {
        PdfPages pages(path, content(slides, format));
        exportTo(pages, slides, caller);
    }

    QString text(const Caller &caller = Caller::current()) const
    {
        return printedBy(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s}, caller);
    }

    /// The pictures on its pages, a line each after two of headings.
    qsizetype imageCount() const
    {
        const QString list = printedBy(u"pdfimages"_s, {u"-list"_s, path});
        return list.split(u'\n', Qt::SkipEmptyParts).size() - 2;
    }
};

QList<FlattenedSlide> showOfOne(const SlideDesign &design)
{
    FlattenedSlide slide;
    slide.serviceItemTitle = u"Song"_s;
    slide.slide = slideWith(design);
    return {slide};
}

SlideElement textLayer(const TextElementProperties &text)
{
    SlideElement layer = rectangleLayer(u"text"_s, {200, 200, 1500, 600}, {}, 1);
    layer.kind = SlideElementKind::text;
    layer.text = text;
    return layer;
}

SlideDesign glowingDesign()
{
    TextElementProperties text = TextElementProperties::lyric(u"Morning \U0001F600 glory"_s);
    text.shadow = TextShadow{.color = {1, 0, 0, 1}, .radius = 80, .x = 20, .y = 20};
    text.outline = TextOutline{.color = {0, 1, 0, 1}, .width = 6};
    text.backgroundFill = RGBAColor{0, 0, 1, 0.4};
    SlideDesign design = designOver(solidBackground({0.4, 0.4, 0.4, 1}));
    design.elements = {textLayer(text)};
    design.elements.first().rotation = 8;
    return design;
}

SlideDesign photographDesign()
{
    SlideDesign design = designOver({});
    design.background.kind = SlideBackgroundKind::image;
    design.background.image = mediaOf(encoded(quarters({1600, 900}), "PNG"));
    design.background.dimAmount = 0.4;
    design.background.blurAmount = 30;
    return design;
}

SlideDesign radialDesign()
{
    SlideDesign design = designOver({});
    design.background.kind = SlideBackgroundKind::gradient;
    design.background.gradient = GradientBackground{.startColor = {1, 0.8, 0.2, 1},
                                                    .endColor = {0.1, 0, 0.4, 1},
                                                    .direction = GradientDirection::radialHint};
    return design;
}

SlideDesign fadedDesign()
{
    SlideDesign design = glowingDesign();
    design.elements.first().opacity = 0.5;
    return design;
}

SlideDesign translucentDesign()
{
    TextElementProperties text = TextElementProperties::lyric(u"Half as bright"_s);
    text.textColor.alpha = 0.5;
    text.shadow.reset();
    SlideDesign design = designOver(solidBackground({0.9, 0.1, 0.1, 0.5}));
    design.elements = {textLayer(text)};
    return design;
}

} // namespace

class TestPdfPages : public GuiTest
{
    Q_OBJECT

private slots:
    void eachSlideOfAServiceIsAPageThatLooksLikeTheWall()
    {
        const QList<FlattenedSlide> slides = demoSlides();
        const Document document(slides, ExportFormat::onePerPage);
        const QList<QImage> pages = pagesOf(document.path);
        QCOMPARE(pages.size(), slides.size());
        for (qsizetype i = 0; i < pages.size(); ++i) {
            QCOMPARE(pages.at(i).size(), QSize(2000, 1125));
            QVERIFY(meanDifference(onWall(slides.at(i).slide), pages.at(i)) < 8);
        }
    }

    void aPageLooksLikeTheWall_data()
    {
        QTest::addColumn<SlideDesign>("design");
        QTest::newRow("with turned letters that glow, and an emoji") << glowingDesign();
        QTest::newRow("with a layer that fades as a whole") << fadedDesign();
        QTest::newRow("with translucent letters over a translucent colour") << translucentDesign();
        QTest::newRow("with a blurred photograph under black") << photographDesign();
        QTest::newRow("with a gradient of rings") << radialDesign();
    }

    void aPageLooksLikeTheWall()
    {
        QFETCH(SlideDesign, design);
        const QList<FlattenedSlide> slides = showOfOne(design);
        const Document document(slides, ExportFormat::onePerPage);
        const QImage page = pagesOf(document.path).constFirst();
        const double difference = meanDifference(onWall(slides.constFirst().slide), page);
        QVERIFY2(difference < 4, qPrintable(QString::number(difference)));
    }

    void lettersStayTextInFacesOfTheDocumentsOwn()
    {
        const Document document(demoSlides(), ExportFormat::onePerPage);
        QVERIFY(document.text().contains(u"Bright with your mercy"_s));
        const QString faces = printedBy(u"pdffonts"_s, {document.path});
        QVERIFY(faces.contains(u"QuenaraSlide-Heavy"_s));
        QVERIFY(!faces.contains(u"Type 3"_s));
    }

    void translucentLettersStayText()
    {
        const Document document(showOfOne(translucentDesign()), ExportFormat::onePerPage);
        QVERIFY(document.text().contains(u"Half as bright"_s));
        QCOMPARE(document.imageCount(), 0);
    }

    void aPhotographOnManySlidesIsInTheDocumentOnce()
    {
        QList<FlattenedSlide> slides = showOfOne(photographDesign());
        slides.append(slides.constFirst());
        slides.append(slides.constFirst());
        const Document document(slides, ExportFormat::onePerPage);
        const QString list = printedBy(u"pdfimages"_s, {u"-list"_s, document.path});
        QSet<QString> objects;
        const QStringList lines = list.split(u'\n', Qt::SkipEmptyParts).sliced(2);
        for (const QString &line : lines) {
            const QStringList columns = line.split(u' ', Qt::SkipEmptyParts);
            if (columns.at(2) == u"image"_s)
                objects.insert(columns.at(10));
        }
        QCOMPARE(objects.size(), 1);
    }

    void aPageHasTheShapeOfItsSlide()
    {
        SlideDesign design = designOver(solidBackground({1, 1, 1, 1}));
        design.canvasSize = square;
        QList<FlattenedSlide> slides = demoSlides().first(1);
        slides += showOfOne(design);
        const QList<QImage> pages = pagesOf(Document(slides, ExportFormat::onePerPage).path);
        QCOMPARE(pages.at(0).size(), QSize(2000, 1125));
        QCOMPARE(pages.at(1).size(), QSize(1125, 1125));
        QCOMPARE(pages.at(1).pixelColor(2, 560), QColor(Qt::white));
    }

    void aHandOutHasTitlesBelowItsPictures_data()
    {
        QTest::addColumn<ExportFormat>("format");
        QTest::addColumn<int>("pages");
        QTest::newRow("of four slides a page") << ExportFormat::fourPerPage << 3;
        QTest::newRow("of nine slides a page") << ExportFormat::ninePerPage << 2;
    }

    void aHandOutHasTitlesBelowItsPictures()
    {
        QFETCH(ExportFormat, format);
        QFETCH(int, pages);
        const QList<FlattenedSlide> slides = demoSlides();
        const Document document(slides, format);
        QCOMPARE(pagesOf(document.path).size(), pages);
        const QString text = document.text().simplified();
        QVERIFY(text.contains(u"1. Pre-Service"_s));
        QVERIFY(text.contains(u"Verse 1"_s));
        QVERIFY(text.contains(u"Sunday"_s));
        QVERIFY(text.contains(u"Page %1 of %1"_s.arg(pages)));
    }

    void theFirstPictureOfAHandOutLooksLikeTheWall()
    {
        const QList<FlattenedSlide> slides = demoSlides();
        const Document document(slides, ExportFormat::fourPerPage);
        const QImage page = pagesOf(document.path).constFirst();
        const QRectF cell =
            HandoutLayout::of(QPageSize(QPageSize::A4), 2).cells.constFirst().picture;
        const QImage wall = onWall(slides.constFirst().slide);
        const QSizeF size = QSizeF(wall.size()).scaled(cell.size(), Qt::KeepAspectRatio);
        const QRect picture = QRectF(cell.topLeft() / 2, size / 2).toRect();
        QVERIFY(meanDifference(wall, page.copy(picture)) < 8);
    }

    void whatCannotBeWrittenIsTold()
    {
        const QTemporaryDir folder;
        const QList<FlattenedSlide> slides = demoSlides();
        PdfPages pages(folder.filePath(u"missing/show.pdf"_s),
                       content(slides, ExportFormat::onePerPage));
        QVERIFY(!pages.open());
        QVERIFY(!pages.fault().isEmpty());
    }

    void aFullDiskLeavesTheFormerFileAndNothingElse()
    {
        const Document document(demoSlides(), ExportFormat::fourPerPage);
        const QByteArray former = printedBy(u"pdftotext"_s, {document.path, u"-"_s}).toUtf8();
        const QList<FlattenedSlide> slides = demoSlides();
        bool isWhole = true;
        {
            PdfPages pages(document.path, content(slides, ExportFormat::onePerPage));
            const FullDisk full(20'000);
            RenderCaches caches;
            QVERIFY(pages.open());
            for (const FlattenedSlide &slide : slides) {
                pages.paint(slide, caches);
                isWhole = isWhole && pages.write();
            }
            isWhole = pages.finish() && isWhole;
            QVERIFY(!pages.fault().isEmpty());
        }
        QVERIFY(!isWhole);
        QCOMPARE(printedBy(u"pdftotext"_s, {document.path, u"-"_s}).toUtf8(), former);
        QCOMPARE(QDir(document.folder.path())
                     .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList{u"show.pdf"_s});
    }
};

QUENARA_GUI_TEST(TestPdfPages)

} // namespace tst_pdf_pages

#include "tst_pdf_pages.moc"
