#include "GoldenSlides.h"

#include "GuiTestSupport.h"
#include "Images.h"
#include "ProjectTemplates.h"

#include <QColorSpace>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include <cmath>

namespace quenara::test {

namespace {

const RGBAColor white{1, 1, 1, 1};
const RGBAColor black{0, 0, 0, 1};
const RGBAColor night = RGBAColor::fromRgb(0x10151f);
const RGBAColor sea = RGBAColor::fromRgb(0x2f6f8f);
const RGBAColor rose = RGBAColor::fromRgb(0xb0413e);

QString verse()
{
    return QStringLiteral("The river carries morning light\nAnd every hill begins to sing\n"
                          "We gather what the day has sown\nAnd evening brings it home");
}

QString story()
{
    return QStringLiteral("In the cool of the morning the whole village came down to the water, "
                          "and those who had bread shared it with those who had none. ");
}

/// Hills before an evening sky, taller than a slide.
SlideMedia landscape()
{
    constexpr QSize size(480, 360);
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, QColor(0x24, 0x3b, 0x6b));
    sky.setColorAt(1, QColor(0xf2, 0xa6, 0x5a));
    painter.fillRect(image.rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xff, 0xe2, 0xa8));
    painter.drawEllipse(QPointF(340, 200), 40, 40);
    painter.setBrush(QColor(0x1c, 0x2b, 0x33));
    QPainterPath hills(QPointF(0, 360));
    hills.lineTo(0, 260);
    hills.cubicTo(120, 180, 200, 320, 300, 260);
    hills.cubicTo(380, 210, 420, 240, 480, 230);
    hills.lineTo(480, 360);
    painter.drawPath(hills);
    painter.end();
    return mediaOf(encoded(image, "PNG"));
}

/// A sign of lines and areas, of 100 by 60 units.
SlideMedia drawing()
{
    return mediaOf("<svg xmlns='http://www.w3.org/2000/svg' width='100' height='60'>"
                   "<rect width='100' height='60' rx='8' fill='#2f6f8f'/>"
                   "<path d='M12 48L50 10L88 48Z' fill='none' stroke='#f2e9d8' stroke-width='3'/>"
                   "<circle cx='50' cy='38' r='7' fill='#e0a134'/></svg>");
}

/// Rings that are the finer the farther they lie from the middle.
SlideMedia rings(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const double way = std::hypot(x + 0.5 - side / 2.0, y + 0.5 - side / 2.0);
            const int shade = int(std::lround(127.5 + 127.5 * std::cos(M_PI * way * way / side)));
            image.setPixel(x, y, qRgb(shade, shade, shade));
        }
    }
    return mediaOf(encoded(image, "PNG"));
}

/// Four colours that look the same whichever of the spaces they are written in.
SlideMedia colors(QColorSpace::NamedColorSpace space)
{
    QImage image = quarters({200, 200});
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            image.setPixelColor(
                x, y, QColor::fromHsvF(color.hueF(), 0.6F * color.hsvSaturationF(), 0.8F));
        }
    }
    image.setColorSpace(QColorSpace::SRgb);
    image.convertToColorSpace(space);
    return mediaOf(encoded(image, "PNG"));
}

SlideElement layer(SlideElementKind kind, const CanvasFrame &frame)
{
    SlideElement element;
    element.id = QStringLiteral("layer");
    element.kind = kind;
    element.frame = frame;
    return element;
}

SlideElement textLayer(const TextElementProperties &text,
                       const CanvasFrame &frame = {160, 140, 1600, 800})
{
    SlideElement element = layer(SlideElementKind::text, frame);
    element.text = text;
    return element;
}

SlideElement shapeLayer(ShapeKind kind, const CanvasFrame &frame, const RGBAColor &fill)
{
    SlideElement element = layer(SlideElementKind::shape, frame);
    element.shape = ShapeProperties{
        .kind = kind, .fill = fill, .stroke = white, .strokeWidth = 4, .cornerRadius = 24};
    return element;
}

SlideElement imageLayer(const std::optional<SlideMedia> &media, const CanvasFrame &frame)
{
    SlideElement element = layer(SlideElementKind::image, frame);
    element.image = media;
    return element;
}

SlideElement lowerThirdLayer(const QString &title, const QString &subtitle,
                             const CanvasFrame &frame)
{
    SlideElement element = layer(SlideElementKind::lowerThird, frame);
    element.lowerThird =
        LowerThirdProperties{title, subtitle, RGBAColor::charcoal, RGBAColor::amber};
    return element;
}

/// Unadorned white lyrics.
TextElementProperties words(const QString &text)
{
    TextElementProperties properties = TextElementProperties::lyric(text);
    properties.shadow.reset();
    return properties;
}

SlideBackground gradient(GradientDirection direction)
{
    SlideBackground background = solidBackground(night);
    background.kind = SlideBackgroundKind::gradient;
    background.gradient = GradientBackground{sea, night, direction};
    return background;
}

SlideBackground imageBackground(const SlideMedia &media, double blurAmount, double dimAmount)
{
    SlideBackground background = gradient(GradientDirection::vertical);
    background.kind = SlideBackgroundKind::image;
    background.image = media;
    background.blurAmount = blurAmount;
    background.dimAmount = dimAmount;
    return background;
}

GoldenSlide slideOf(const QString &name, const QList<SlideElement> &elements,
                    const SlideBackground &background = solidBackground(night))
{
    SlideDesign design = designOver(background);
    design.elements = elements;
    return {name, {.slide = slideWith(design)}};
}

QList<GoldenSlide> templateSlides()
{
    QList<GoldenSlide> slides;
    for (const SlideTemplate &item : ProjectTemplates::templates()) {
        const bool isTitle = QStringList{QStringLiteral("sermonTitle"), QStringLiteral("welcome"),
                                         QStringLiteral("closing")}
                                 .contains(item.id);
        const QString body = isTitle ? QStringLiteral("What the water carries") : verse();
        const Slide slide =
            ProjectTemplates::slide(QStringLiteral("Evening at the River"), body, 0, item.id,
                                    QStringLiteral("Words and music: public domain"), landscape());
        slides.append({QStringLiteral("template-") + item.id, {.slide = slide}});
    }
    return slides;
}

QList<GoldenSlide> backgroundSlides()
{
    QList<GoldenSlide> slides = {
        slideOf(QStringLiteral("background-solid"), {}, solidBackground(sea))};
    for (const GradientDirection direction : allCases<GradientDirection>()) {
        slides.append(slideOf(QStringLiteral("background-gradient-") + rawValue(direction), {},
                              gradient(direction)));
    }
    SlideBackground video = solidBackground(night);
    video.kind = SlideBackgroundKind::video;
    const SlideMedia missing{.dataUrl = "data:image/png;base64", .name = {}, .mimeType = {}};
    SlideBackground nothing = imageBackground(missing, 0, 0);
    nothing.gradient.reset();
    slides += {
        slideOf(QStringLiteral("background-image"), {}, imageBackground(landscape(), 0, 0)),
        slideOf(QStringLiteral("background-image-blurred"), {},
                imageBackground(landscape(), 24, 0)),
        slideOf(QStringLiteral("background-image-dimmed"), {},
                imageBackground(landscape(), 0, 0.48)),
        slideOf(QStringLiteral("background-image-missing"), {}, imageBackground(missing, 0, 0)),
        slideOf(QStringLiteral("background-image-and-gradient-missing"), {}, nothing),
        slideOf(QStringLiteral("background-video"), {}, video),
    };
    return slides;
}

QList<GoldenSlide> layerSlides()
{
    const CanvasFrame left{140, 190, 760, 700};
    const CanvasFrame right{1020, 190, 760, 700};
    SlideElement bare = shapeLayer(ShapeKind::rectangle, {140, 640, 480, 300}, sea);
    bare.shape->stroke.reset();
    bare.shape->cornerRadius = 0;
    GoldenSlide otherCanvas =
        slideOf(QStringLiteral("canvas-square"),
                {textLayer(words(QStringLiteral("A square\ncanvas")), {50, 300, 900, 400}),
                 shapeLayer(ShapeKind::rectangle, {700, 700, 600, 600}, rose)},
                gradient(GradientDirection::diagonal));
    otherCanvas.view.slide->design.canvasSize = {1000, 1000};
    GoldenSlide aids = slideOf(QStringLiteral("editing-aids"),
                               {shapeLayer(ShapeKind::rectangle, {600, 350, 720, 380}, sea)});
    aids.view.showSafeArea = true;
    aids.view.selectedElementID = QStringLiteral("layer");
    return {
        {QStringLiteral("no-slide"), {}},
        otherCanvas,
        aids,
        slideOf(QStringLiteral("layer-shapes"),
                {shapeLayer(ShapeKind::rectangle, {140, 140, 760, 400}, rose),
                 shapeLayer(ShapeKind::capsule, {1020, 140, 760, 200}, sea),
                 shapeLayer(ShapeKind::capsule, {1020, 440, 200, 500}, rose),
                 shapeLayer(ShapeKind::line, {1320, 640, 460, 8}, RGBAColor::amber), bare}),
        slideOf(QStringLiteral("layer-image"),
                {imageLayer(landscape(), left), imageLayer(landscape(), {1020, 390, 760, 200})}),
        slideOf(QStringLiteral("layer-image-missing"),
                {imageLayer(std::nullopt, left), imageLayer(mediaOf("no image"), right)}),
        slideOf(QStringLiteral("layer-image-drawing"),
                {imageLayer(drawing(), {100, 240, 1000, 600}),
                 imageLayer(drawing(), {1300, 240, 500, 120}),
                 imageLayer(drawing(), {1300, 480, 360, 360})}),
        slideOf(QStringLiteral("layer-image-rings"),
                {imageLayer(rings(1100), {60, 140, 800, 800}),
                 imageLayer(rings(1100), {900, 140, 280, 280}),
                 imageLayer(rings(60), {1220, 240, 600, 600})}),
        slideOf(QStringLiteral("layer-image-profile"),
                {imageLayer(colors(QColorSpace::SRgb), {160, 290, 500, 500}),
                 imageLayer(colors(QColorSpace::DisplayP3), {710, 290, 500, 500}),
                 imageLayer(colors(QColorSpace::AdobeRgb), {1260, 290, 500, 500})}),
        slideOf(
            QStringLiteral("layer-lower-third-one-line"),
            {lowerThirdLayer(QStringLiteral("Ana Sofía Morales"), {}, {120, 780, 900, 180}),
             lowerThirdLayer({}, QStringLiteral("Guest of the Evening"), {120, 480, 900, 180})}),
        slideOf(QStringLiteral("layer-lower-third"),
                {lowerThirdLayer(QStringLiteral("Ana Sofía Morales"),
                                 QStringLiteral("Guest of the Evening"), {120, 780, 900, 180}),
                 lowerThirdLayer(QStringLiteral("A name that is by far too long for its band"),
                                 QStringLiteral("And what it stands for is longer still by a word"),
                                 {120, 180, 700, 160})},
                gradient(GradientDirection::vertical)),
    };
}

QList<GoldenSlide> compositionSlides()
{
    SlideElement turned =
        textLayer(words(QStringLiteral("Turned by a twelfth")), {360, 300, 1200, 200});
    turned.text->backgroundFill = rose;
    turned.text->shadow = TextShadow::soft;
    turned.rotation = 30;
    SlideElement image = imageLayer(landscape(), {1240, 620, 480, 300});
    image.rotation = -12;

    SlideElement faded = shapeLayer(ShapeKind::rectangle, {200, 240, 900, 500}, rose);
    faded.shape->strokeWidth = 24;
    faded.opacity = 0.5;
    SlideElement fadedText =
        textLayer(words(QStringLiteral("Fading whole")), {700, 420, 1000, 400});
    fadedText.text->backgroundFill = sea;
    fadedText.text->outline = TextOutline{black, 16};
    fadedText.text->shadow = TextShadow{black, 30, 20, 20};
    fadedText.opacity = 0.5;

    SlideElement under = shapeLayer(ShapeKind::rectangle, {300, 200, 800, 500}, sea);
    under.zIndex = -3;
    SlideElement over = shapeLayer(ShapeKind::capsule, {800, 400, 800, 400}, rose);
    over.zIndex = 4;
    SlideElement between =
        textLayer(words(QStringLiteral("Between the two")), {460, 400, 1000, 200});
    SlideElement hidden = shapeLayer(ShapeKind::rectangle, {0, 0, 1920, 1080}, white);
    hidden.visible = false;
    hidden.zIndex = 9;
    return {
        slideOf(QStringLiteral("rotation"), {turned, image}),
        slideOf(QStringLiteral("opacity"), {faded, fadedText},
                gradient(GradientDirection::diagonal)),
        slideOf(QStringLiteral("drawing-order"), {over, between, hidden, under}),
    };
}

QList<GoldenSlide> textSlides()
{
    const SlideBackground light = solidBackground(RGBAColor::nearWhite);
    QList<SlideElement> alignments;
    for (const TextAlignmentValue alignment : allCases<TextAlignmentValue>()) {
        TextElementProperties text = words(QStringLiteral("Sing\nwith all your heart"));
        text.fontSize = 64;
        text.alignment = alignment;
        text.padding = 40;
        text.backgroundFill = RGBAColor::charcoal;
        alignments.append(textLayer(text, {160, 90 + double(alignments.size()) * 310, 1600, 280}));
    }
    QList<SlideElement> weights;
    for (const TextFontWeight weight : allCases<TextFontWeight>()) {
        const double top = 90 + double(weight) * 185;
        TextElementProperties text = words(QStringLiteral("Hallelujah"));
        text.weight = weight;
        weights.append(textLayer(text, {60, top, 900, 160}));
        text.fontFamily = QStringLiteral("Inter");
        weights.append(textLayer(text, {960, top, 900, 160}));
    }
    TextElementProperties shadow = words(verse());
    shadow.textColor = black;
    shadow.shadow = TextShadow{rose, 12, 10, 14};
    TextElementProperties wide = words(QStringLiteral("Grace"));
    wide.fontSize = 300;
    wide.weight = TextFontWeight::heavy;
    wide.shadow = TextShadow{{0.2, 0.6, 1, 0.9}, 120, 0, 0};
    TextElementProperties outline = words(verse());
    outline.outline = TextOutline{rose, 14};
    TextElementProperties both = words(QStringLiteral("Outline and shadow"));
    both.fontSize = 140;
    both.outline = TextOutline{black, 12};
    both.shadow = TextShadow::soft;
    TextElementProperties spaced = words(QStringLiteral("Straße nach Haus\nspaced and capital"));
    spaced.uppercase = true;
    spaced.characterSpacing = 14;
    spaced.lineHeight = 1.8;
    TextElementProperties broken =
        words(QStringLiteral("Hallelujah").repeated(16) + QStringLiteral(" amen"));
    broken.alignment = TextAlignmentValue::left;
    TextElementProperties wholeWord =
        words(QStringLiteral("Hallelujah").repeated(5) + QStringLiteral(" amen"));
    TextElementProperties marks = words(
        QStringLiteral("Že\u0301 n\u0303andu\u0301 — Ærø, Łódź\n“official” fjord & flüstern"));
    TextElementProperties held = words(QStringLiteral("Ångström à É"));
    held.fontSize = 200;
    held.padding = 0;
    held.backgroundFill = rose;
    TextElementProperties backwards = words(QStringLiteral("\u202eEvening brings it home,\n"
                                                           "\u202eand all the earth is still."));
    return {
        slideOf(QStringLiteral("text-alignments"), alignments),
        slideOf(QStringLiteral("text-weights"), weights),
        slideOf(QStringLiteral("text-shadow"), {textLayer(shadow)}, light),
        slideOf(QStringLiteral("text-shadow-wide"), {textLayer(wide)}),
        slideOf(QStringLiteral("text-outline"), {textLayer(outline)}, light),
        slideOf(QStringLiteral("text-outline-and-shadow"), {textLayer(both)},
                gradient(GradientDirection::horizontal)),
        slideOf(QStringLiteral("text-spaced-capitals"), {textLayer(spaced)}),
        slideOf(QStringLiteral("text-wrapped"), {textLayer(words(story().repeated(2).trimmed()))}),
        slideOf(QStringLiteral("text-shrunk"), {textLayer(words(story().repeated(6).trimmed()))}),
        slideOf(QStringLiteral("text-truncated"), {textLayer(words(story().repeated(40)))}),
        slideOf(QStringLiteral("text-whole-word"), {textLayer(wholeWord)}),
        slideOf(QStringLiteral("text-broken-word"), {textLayer(broken)}),
        slideOf(QStringLiteral("text-blank-lines"),
                {textLayer(words(QStringLiteral("Silence\n\n\nand song")))}),
        slideOf(QStringLiteral("text-marks"), {textLayer(marks)}),
        slideOf(QStringLiteral("text-low-fill"), {textLayer(held, {300, 480, 1320, 40})}),
        slideOf(QStringLiteral("text-right-to-left"), {textLayer(backwards)}),
    };
}

} // namespace

QList<GoldenSlide> goldenSlides()
{
    return templateSlides() + backgroundSlides() + layerSlides() + compositionSlides()
        + textSlides();
}

/// Four lines about the morning, the river, the hills and the way home.
struct Verse
{
    const char *script;
    QString text;
};

QList<Verse> verses()
{
    return {
        {"arabic",
         QStringLiteral("النهر يحمل نور الصباح\nوكل تل يبدأ الغناء\n"
                        "نجمع ما زرعه النهار\nوالمساء يعود به إلى البيت")},
        {"hebrew",
         QStringLiteral("הַנָּהָר נוֹשֵׂא אֶת אוֹר הַבֹּקֶר\nוכל גבעה מתחילה לשיר\n"
                        "אוספים את מה שזרע היום\nוהערב מביא אותו הביתה")},
        {"devanagari",
         QStringLiteral("नदी सुबह का उजाला लाती है\nऔर हर पहाड़ी गाने लगती है\n"
                        "हम दिन का बोया बटोरते हैं\nऔर साँझ उसे घर ले आती है")},
        {"thai",
         QStringLiteral("แม่น้ำพัดพาแสงยามเช้า\nทุกเนินเขาเริ่มร้องเพลง\n"
                        "เรารวบรวมสิ่งที่วันได้หว่าน\nและยามเย็นนำมันกลับบ้าน")},
        {"chinese",
         QStringLiteral("河水带来清晨的光\n每座山丘开始歌唱\n"
                        "我们收取白日所种\n黄昏把它带回家乡")},
        {"japanese",
         QStringLiteral("川は朝の光を運び\n丘という丘が歌い出す\n"
                        "昼が蒔いたものを集め\n夕べがそれを家へ運ぶ")},
        {"korean",
         QStringLiteral("강물은 아침 빛을 나르고\n언덕마다 노래를 시작하네\n"
                        "낮이 뿌린 것을 거두어\n저녁이 집으로 데려가네")},
        {"emoji",
         QStringLiteral("\U0001F305 The river \U0001F30A carries light\n"
                        "\u26f0\ufe0f every hill \U0001F3B6 begins to sing\n"
                        "\U0001F33E we gather \U0001F64C what is sown\n"
                        "\U0001F307 and evening \U0001F3E0 brings it home")},
    };
}

/// The verse of each script in each template.
QList<GoldenSlide> scriptSlides()
{
    QList<GoldenSlide> slides;
    for (const auto &[script, text] : verses()) {
        for (const SlideTemplate &item : ProjectTemplates::templates()) {
            const QString title = text.left(text.indexOf(QLatin1Char('\n')));
            slides.append({QStringLiteral("%1-%2").arg(QLatin1String(script), item.id),
                           {.slide = ProjectTemplates::slide(title, text, 0, item.id, text)}});
        }
    }
    return slides;
}

QList<GoldenSlide> machineSlides()
{
    TextElementProperties serif = words(verse());
    serif.fontFamily = QStringLiteral("Georgia");
    TextElementProperties monospaced = words(verse());
    monospaced.fontFamily = QStringLiteral("Menlo");
    TextElementProperties emoji = words(
        QStringLiteral("Rejoice \U0001F600 \U0001F64F\U0001F3FE \u2b50\n\u271d \u2665 \u2764\ufe0f"
                       "\U0001F54A\ufe0f 1 2 3"));
    emoji.shadow = TextShadow::soft;
    TextElementProperties emblem =
        words(QStringLiteral("\U0001F468\u200d\U0001F469\u200d\U0001F467"));
    emblem.fontSize = 500;
    return {
        slideOf(QStringLiteral("machine-serif"), {textLayer(serif)}),
        slideOf(QStringLiteral("machine-monospaced"), {textLayer(monospaced)}),
        slideOf(QStringLiteral("machine-hebrew"),
                {textLayer(words(
                    QStringLiteral("\u05e9\u05dc\u05d5\u05dd \u05dc\u05db\u05dc "
                                   "\u05d4\u05e2\u05d5\u05dc\u05dd, 7 \u05d9\u05d5\u05dd")))}),
        slideOf(QStringLiteral("machine-arabic"),
                {textLayer(words(QStringLiteral("\u0627\u0644\u0633\u0644\u0627\u0645 "
                                                "\u0639\u0644\u064a\u0643\u0645")))}),
        slideOf(QStringLiteral("machine-emoji"), {textLayer(emoji)}),
        slideOf(QStringLiteral("machine-emoji-large"), {textLayer(emblem)}),
    };
}

QString goldenFileName(const GoldenSlide &slide, const QSize &size)
{
    return QStringLiteral("%1-%2.png").arg(slide.name).arg(size.width());
}

} // namespace quenara::test
