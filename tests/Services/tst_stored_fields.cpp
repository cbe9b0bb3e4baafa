#include "JsonReader.h"
#include "TestMain.h"

#include <QTest>

using namespace quenara;
using namespace Qt::StringLiterals;

namespace tst_stored_fields {

enum class Size { small, large };

} // namespace tst_stored_fields

template<>
inline constexpr auto quenara::rawCases<tst_stored_fields::Size> =
    std::to_array<RawCase<tst_stored_fields::Size>>({
        {tst_stored_fields::Size::small, "small"},
        {tst_stored_fields::Size::large, "large"},
    });

namespace tst_stored_fields {

namespace {

/// A part of a record that was added with it.
struct Frame
{
    double width = 1;

    bool operator==(const Frame &) const = default;
    static constexpr auto fields() { return FieldList{field("width", &Frame::width)}; }
};
static_assert(listsEveryMember<Frame>);

/// A record whose older texts hold the "name" alone. The initial values of its members are not what
/// such a text means.
struct Note
{
    QString name = u"unnamed"_s;
    QString label = u"unlabelled"_s;
    QString caption = u"without a caption"_s;
    double opacity = 0.25;
    Size size = Size::small;
    Frame frame;
    std::optional<QString> remark = u"unremarked"_s;

    bool operator==(const Note &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("name", &Note::name),
            field("label", &Note::label, [] { return u"new"_s; }),
            field("caption", &Note::caption,
                  [](const Note &note) { return note.name + u": "_s + note.label; }),
            field("opacity", &Note::opacity, 1),
            field("size", &Note::size, Size::large),
            field("frame", &Note::frame, Frame{.width = 480}),
            field("remark", &Note::remark),
        };
    }
};
static_assert(listsEveryMember<Note>);

template<class T>
std::optional<T> readAs(const QByteArray &text)
{
    simdjson::dom::parser parser;
    T value;
    const bool isRead = json::Reader().read(
        parser.parse(text.constData(), std::size_t(text.size())).value(), value);
    return isRead ? std::optional(value) : std::nullopt;
}

/// What the older text {"name": "psalm"} means.
Note older()
{
    return {.name = u"psalm"_s,
            .label = u"new"_s,
            .caption = u"psalm: new"_s,
            .opacity = 1,
            .size = Size::large,
            .frame = {.width = 480},
            .remark = std::nullopt};
}

Note with(const std::function<void(Note &)> &change)
{
    Note note = older();
    change(note);
    return note;
}

} // namespace

class TestStoredFields : public QObject
{
    Q_OBJECT

private slots:
    void aMissingFieldIsWhatItsDeclarationSays_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<std::optional<Note>>("expected");
        const auto row = [](const char *name, const char *text,
                            const std::optional<Note> &expected) {
            QTest::newRow(name) << QByteArray(text) << expected;
        };
        row("a text from before the fields were added", R"({"name": "psalm"})", older());
        row("a null says what a missing key says",
            R"({"name": "psalm", "label": null, "caption": null, "opacity": null, "size": null,
                "frame": null, "remark": null})",
            older());
        row("what depends on another field takes it from the text, wherever it stands there",
            R"({"label": "old", "name": "psalm"})", with([](Note &note) {
                note.label = u"old"_s;
                note.caption = u"psalm: old"_s;
            }));
        row("what is there counts",
            R"({"name": "psalm", "label": "", "caption": "c", "opacity": 0.5, "size": "small",
                "frame": {"width": 2}, "remark": "r"})",
            Note{u"psalm"_s, {}, u"c"_s, 0.5, Size::small, {.width = 2}, u"r"_s});
        row("a null after a value counts", R"({"name": "psalm", "label": "old", "label": null})",
            older());
        row("a value after a null counts", R"({"name": "psalm", "opacity": null, "opacity": 0})",
            with([](Note &note) { note.opacity = 0; }));
        row("the last value of a key counts, even after values of other types",
            R"({"name": 7, "name": "psalm", "size": "huge", "size": [], "size": "large"})",
            older());
        row("the last record counts whole, whatever an earlier one holds",
            R"({"name": "psalm", "frame": {"width": 1}, "frame": {"width": "2"},
                "frame": {"width": 480}})",
            older());
        row("a last value of the wrong type is not what an earlier one says",
            R"({"name": "psalm", "name": 7})", std::nullopt);
        row("nothing stands in for a required field", R"({"label": "old"})", std::nullopt);
        row("nor for one that is null", R"({"name": null})", std::nullopt);
        row("a value of the wrong type is not a missing one",
            R"({"name": "psalm", "opacity": "1"})", std::nullopt);
        row("nor is a record that lacks a required field", R"({"name": "psalm", "frame": {}})",
            std::nullopt);
    }
    void aMissingFieldIsWhatItsDeclarationSays()
    {
        QFETCH(QByteArray, text);
        QFETCH(std::optional<Note>, expected);
        QVERIFY(readAs<Note>(text) == expected);
        // In a list each starts anew.
        const auto list = readAs<QList<Note>>("[" + text + ", " + text + "]");
        QVERIFY(list == (expected ? std::optional(QList{*expected, *expected}) : std::nullopt));
    }
};

QUENARA_TEST(TestStoredFields)

} // namespace tst_stored_fields

#include "tst_stored_fields.moc"
