#include "ProjectCodec.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <limits>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_clips {

namespace {

SlideClip slideClip()
{
    SlideClip clip{showOf({1}).serviceItems.constFirst().slides.constFirst()};
    clip.slide.design.background.image =
        SlideMedia{.dataUrl = "data:image/png;base64," + QByteArray(100'000, 'A'),
                   .name = u"sea.png"_s,
                   .mimeType = u"image/png"_s};
    return clip;
}

LayerClip layerClip()
{
    return {u"A1"_s, slideClip().slide.design.elements.constFirst()};
}

} // namespace

class TestClips : public QObject
{
    Q_OBJECT

private slots:
    void aSlideComesBackAsItWasItsImagesIncluded()
    {
        QCOMPARE(ProjectCodec::decodeSlideClip(ProjectCodec::encode(slideClip())), slideClip());
    }

    void aLayerComesBackAsItWas()
    {
        QCOMPARE(ProjectCodec::decodeLayerClip(ProjectCodec::encode(layerClip())), layerClip());
    }

    void aNumberThatIsNotFiniteIsNotWritten()
    {
        LayerClip clip = layerClip();
        clip.layer.rotation = std::numeric_limits<double>::infinity();
        QVERIFY_THROWS_EXCEPTION(ProjectEncodingError,
                                 static_cast<void>(ProjectCodec::encode(clip)));
    }

    void anythingElseIsNoClip_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("no JSON") << QByteArray("slide");
        QTest::newRow("a list") << QByteArray("[]");
        QTest::newRow("an empty object") << QByteArray("{}");
        QTest::newRow("a slide that is a number") << QByteArray(R"({"slide": 3})");
        QTest::newRow("a title that is a number") << QByteArray(R"({"slide": {"title": 3}})");
        QTest::newRow("a layer without anything")
            << QByteArray(R"({"slideID": "A1", "layer": {}})");
        QTest::newRow("deep nesting") << QByteArray(100'000, '[');
        QTest::newRow("a document") << dataBytes(u"current.quenara"_s);
        QTest::newRow("half a slide") << ProjectCodec::encode(slideClip()).chopped(500);
        QTest::newRow("half a layer") << ProjectCodec::encode(layerClip()).chopped(50);
        QTest::newRow("more than anybody copies")
            << ProjectCodec::encode(slideClip()) + QByteArray(ProjectCodec::largestClip, ' ');
    }

    void anythingElseIsNoClip()
    {
        QFETCH(QByteArray, bytes);
        QCOMPARE(ProjectCodec::decodeSlideClip(bytes), std::nullopt);
        QCOMPARE(ProjectCodec::decodeLayerClip(bytes), std::nullopt);
    }
};

QUENARA_TEST(TestClips)

} // namespace tst_clips

#include "tst_clips.moc"
