// Prints every key and every raw value that a project file may hold, as libFuzzer reads them.

#include "LegacyDocument.h"

#include <cstdio>
#include <set>
#include <string_view>

using namespace quenara;

namespace {

using Words = std::set<std::string_view>;

template<class T>
void collect(Words &words)
{
    if constexpr (Record<T>) {
        forEachField<T>(
            [&words]<class Member, class WhenMissing>(const Field<T, Member, WhenMissing> &f) {
                words.insert(f.name);
                collect<Member>(words);
            });
    } else if constexpr (RawEnum<T>) {
        for (const RawCase<T> &entry : rawCases<T>)
            words.insert(entry.rawValue);
    } else if constexpr (requires { typename T::value_type; }) {
        collect<typename T::value_type>(words);
    }
}

} // namespace

int main()
{
    Words words;
    collect<ZelvoProject>(words);
    collect<LegacyQuenaraDocument>(words);
    for (const std::string_view word : words)
        std::printf("\"\\\"%.*s\\\"\"\n", int(word.size()), word.data());
    return 0;
}
