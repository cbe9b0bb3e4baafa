#include "RandomProject.h"

#include <QStringDecoder>
#include <QTimeZone>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string_view>

namespace quenara::test {

namespace {

constexpr auto texts = std::to_array<std::u16string_view>({
    u"plain words",
    u"Grüße, façade, Łódź",
    u"\u0645\u0631\u062d\u0628\u0627 \u202bright to left\u202c",
    u"\u05e9\u05b8\u05c1\u05dc\u05d5\u05b9\u05dd",
    u"e\u0301\u0323 q\u0307\u0323",
    u"\U0001F3B5\U0001F54A\uFE0F",
    u"\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466 \U0001F44D\U0001F3FD",
    u"\U00010348 \U0002070E \U0010FFFD",
    u"\u6b4c\u3046 \ub178\ub798",
    u"\uFEFF \uFFFD \uFFFE \uFFFF",
    u"\u2028\u2029\u0085\u00a0\u200b",
    u"\"quoted\" \\ and / </script>",
    u"\\u0041 \\n %1 %s {} [] , :",
    u"\t\r\n\b\f",
    u"\x01\x02\x1b\x1f\x7f",
    u" \n blank at both ends \n ",
    u" ",
});
constexpr char16_t nul = 0;
constexpr char16_t highHalf = 0xd83c;
constexpr char16_t lowHalf = 0xdfb5;

constexpr auto reals = std::to_array<double>({
    0.0,
    -0.0,
    1.0 / 3,
    0.1 + 0.2,
    24.0,
    -300.0,
    1080.0,
    1e-7,
    1e15,
    1e17,
    1e21,
    1e22,
    123456789012345680.0,
    -9223372036854775808.0,
    18446744073709551616.0,
    -18446744073709551616.0,
    147573952589676412928.0,
    std::numeric_limits<double>::denorm_min(),
    -std::numeric_limits<double>::min(),
    std::numeric_limits<double>::epsilon(),
    std::numeric_limits<double>::max(),
    std::numeric_limits<double>::lowest(),
});

constexpr auto integers = std::to_array<std::int64_t>({
    0,
    -1,
    2,
    (std::int64_t(1) << 53) + 1,
    std::numeric_limits<std::int64_t>::min(),
    std::numeric_limits<std::int64_t>::max(),
});

/// Makes values by their types, records by their field lists.
class RandomValues
{
public:
    explicit RandomValues(std::function<std::uint64_t()> next) : m_next(std::move(next)) {}

    template<class T>
    T make()
    {
        T value{};
        fill(value);
        return value;
    }

private:
    std::size_t below(std::size_t limit) { return m_next() % limit; }

    template<class T, std::size_t size>
    const T &oneOf(const std::array<T, size> &values)
    {
        return values[below(size)];
    }

    void fill(QString &value)
    {
        value.clear();
        for (std::size_t pieces = below(4); pieces > 0; --pieces) {
            switch (below(8)) {
            case 0:
                value += QChar(nul);
                break;
            case 1:
                value += QChar(highHalf);
                break;
            case 2:
                value += QChar(lowHalf);
                break;
            default:
                const std::u16string_view text = oneOf(texts);
                value += QStringView(text.data(), qsizetype(text.size()));
            }
        }
    }

    /// Bytes are always UTF-8: in memory they came out of base64 or out of a document.
    void fill(QByteArray &value) { value = make<QString>().toUtf8(); }
    void fill(bool &value) { value = below(2) == 0; }

    void fill(double &value)
    {
        value = oneOf(reals);
        if (below(2) == 0)
            return;
        const auto anything = std::bit_cast<double>(m_next());
        value = std::isfinite(anything) ? anything : value;
    }

    void fill(std::int64_t &value)
    {
        value = below(2) == 0 ? oneOf(integers) : std::int64_t(m_next());
    }

    void fill(QDateTime &value)
    {
        const QDateTime first = QDateTime(QDate(1, 1, 1), QTime(0, 0), QTimeZone::utc()).toUTC();
        const QDateTime last =
            QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59), QTimeZone::utc()).toUTC();
        value = first.addSecs(qint64(below(std::size_t(first.secsTo(last)) + 1)));
    }

    template<RawEnum E>
    void fill(E &value)
    {
        value = E(below(rawCases<E>.size()));
    }

    template<Optional T>
    void fill(T &value)
    {
        value.reset();
        if (below(2) != 0)
            value.emplace(make<typename T::value_type>());
    }

    template<class T>
    void fill(QList<T> &values)
    {
        values.clear();
        for (std::size_t count = below(4); count > 0; --count)
            values.append(make<T>());
    }

    template<Record T>
    void fill(T &record)
    {
        forEachField<T>([&](const auto &f) { fill(record.*f.member); });
    }

    std::function<std::uint64_t()> m_next;
};

template<class T>
void dropHalfPairs(T &value)
{
    if constexpr (Record<T>) {
        forEachField<T>([&value](const auto &f) { dropHalfPairs(value.*f.member); });
    } else if constexpr (std::is_same_v<T, QString>) {
        // Without the flag, a byte-order mark that begins the text would be dropped.
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
        value = decoder(value.toUtf8());
    } else if constexpr (requires { value.has_value(); }) {
        if (value)
            dropHalfPairs(*value);
    } else if constexpr (requires { value.removeLast(); }) {
        for (auto &element : value)
            dropHalfPairs(element);
    }
}

} // namespace

ZelvoProject randomProject(unsigned seed)
{
    RandomValues values([engine = std::mt19937_64(seed)]() mutable { return engine(); });
    auto project = values.make<ZelvoProject>();
    if (project.serviceItems.isEmpty())
        project.serviceItems.append(values.make<ServiceItem>());
    return project;
}

SlideDesign randomDesign(const std::function<std::uint64_t()> &next)
{
    return RandomValues(next).make<SlideDesign>();
}

ZelvoProject withoutHalfPairs(ZelvoProject project)
{
    dropHalfPairs(project);
    return project;
}

} // namespace quenara::test
