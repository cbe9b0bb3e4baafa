#include "FittedText.h"
#include "GuiTestSupport.h"
#include "RenderCaches.h"
#include "TestSupport.h"

#include <QPaintEvent>
#include <QScreen>

using namespace quenara;
using namespace quenara::test;

namespace tst_fitted_text {

namespace {

constexpr QSize room(480, 140);
constexpr FittedText::Setting setting{
    .size = 44, .weight = TextFontWeight::bold, .limits = {.smallestFit = 0.52, .lineMaximum = 7}};

/// A text in white on black.
struct Words
{
    RenderCaches caches;
    FittedText label{setting, caches};

    explicit Words(const QString &text, const QSize &size = room)
    {
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::black);
        palette.setColor(QPalette::WindowText, Qt::white);
        label.setPalette(palette);
        label.setText(text);
        label.resize(size);
    }

    QImage image() { return label.grab().toImage().convertToFormat(QImage::Format_RGB32); }
    QRect ink() { return inkOf(image()); }
};

/// Notes which part of a widget is painted.
class PaintedArea : public QObject
{
public:
    QRect area;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            area |= static_cast<QPaintEvent *>(event)->rect();
        return false;
    }
};

QString lines(int count)
{
    return QStringLiteral("Holy\n").repeated(count).trimmed();
}

const QString hebrew = QStringLiteral("\u05d4\u05dc\u05dc\u05d5 \u05d0\u05ea");

} // namespace

class TestFittedText : public GuiTest
{
    Q_OBJECT

private slots:
    void whatFitsIsNotShrunkAndStandsAtTheTop()
    {
        const QRect inLowRoom = Words(lines(2), {480, 120}).ink();
        const QRect inHighRoom = Words(lines(2), {480, 900}).ink();
        QCOMPARE(inLowRoom, inHighRoom);
        QVERIFY(inLowRoom.top() < 20);
    }

    void moreLinesThanThereIsRoomForAreShrunk()
    {
        const QRect two = Words(lines(2)).ink();
        const QRect four = Words(lines(4)).ink();
        QVERIFY(four.width() < two.width());
        QVERIFY(four.height() > room.height() / 2);
    }

    void moreLinesThanThereMayBeAreCutHoweverMuchRoomThereIs()
    {
        const QRect seven = Words(lines(7), {480, 2000}).ink();
        const QRect all = Words(lines(400), {480, 2000}).ink();
        QVERIFY(all.height() < seven.height());
        QVERIFY(qAbs(all.height() - seven.height() * setting.limits.smallestFit) <= 6);
    }

    void nothingIsPaintedAcrossTheEdges_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QSize>("size");
        const QString words = QStringLiteral("We lift our eyes to where our help comes from, ");
        for (const QSize &size : {QSize(354, 140), QSize(474, 141), QSize(474, 160)}) {
            const auto row = [&](const char *name, const QString &text) {
                QTest::addRow("%s in %d x %d", name, size.width(), size.height()) << text << size;
            };
            row("a line", QStringLiteral("jumping quickly"));
            row("many words", words.repeated(8));
            row("hundreds of lines", QStringLiteral("jumping\n").repeated(400));
            row("a word without end", QString(3000, u'g'));
            row("right-to-left", hebrew.repeated(30));
            row("tall letters", QStringLiteral("\u00c5\u1ebe\u1eb4 ").repeated(20));
        }
    }

    void nothingIsPaintedAcrossTheEdges()
    {
        QFETCH(QString, text);
        QFETCH(QSize, size);
        const QRect ink = Words(text, size).ink();
        QVERIFY(!ink.isEmpty());
        QVERIFY(ink.top() > 0);
        QVERIFY(ink.bottom() < size.height() - 1);
    }

    void aTextStartsAtTheSideItIsReadFrom()
    {
        const QRect latin = Words(QStringLiteral("Amen")).ink();
        QVERIFY(latin.left() < 10);
        QVERIFY(latin.right() < room.width() / 2);
        const QRect fromTheRight = Words(hebrew).ink();
        QVERIFY(fromTheRight.right() > room.width() - 10);
        QVERIFY(fromTheRight.left() > room.width() / 2);
    }

    void emojiAreInColour()
    {
        const QImage image = Words(QStringLiteral("\U0001f499 \U0001f49a")).image();
        bool isColoured = false;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                isColoured = isColoured || pixel.saturation() > 128;
            }
        }
        QVERIFY(isColoured);
    }

    void itTakesTheColourOfItsPalette()
    {
        Words words(QStringLiteral("Amen"));
        QPalette palette = words.label.palette();
        palette.setColor(QPalette::WindowText, Qt::green);
        words.label.setPalette(palette);
        const QImage image = words.image();
        const QRect ink = inkOf(image);
        bool isGreen = false;
        for (int x = ink.left(); x <= ink.right(); ++x)
            isGreen = isGreen || image.pixel(x, ink.center().y()) == qRgb(0, 255, 0);
        QVERIFY(isGreen);
    }

    void aChangeRepaintsTheLettersAlone()
    {
        Words words(QStringLiteral("Glory in the highest"), {1500, 300});
        words.label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&words.label));
        PaintedArea painted;
        words.label.installEventFilter(&painted);
        for (const QString &text :
             {QStringLiteral("Amen"), lines(4), hebrew, QStringLiteral("\u00c5 \U0001f499"),
              QString(), QStringLiteral("jumping")}) {
            painted.area = {};
            words.label.setText(text);
            QCoreApplication::processEvents();
            const QRect whole = words.label.rect();
            QVERIFY(whole.contains(painted.area));
            QVERIFY(painted.area.width() * painted.area.height()
                    < 0.9 * whole.width() * whole.height());
            const QImage screen = words.label.screen()
                                      ->grabWindow(words.label.winId())
                                      .toImage()
                                      .convertToFormat(QImage::Format_RGB32);
            QCOMPARE(screen, Words(text, whole.size()).image());
        }
    }

    void itFollowsItsTextAndItsSize()
    {
        Words words(lines(1));
        const QImage one = words.image();
        words.label.setText(lines(4));
        const QImage four = words.image();
        QVERIFY(four != one);
        QCOMPARE(words.label.text(), lines(4));
        words.label.resize(480, 400);
        QVERIFY(inkOf(words.image()).height() > inkOf(four).height());
        words.label.setText({});
        QVERIFY(words.ink().isEmpty());
    }
};

QUENARA_GUI_TEST(TestFittedText)

} // namespace tst_fitted_text

#include "tst_fitted_text.moc"
