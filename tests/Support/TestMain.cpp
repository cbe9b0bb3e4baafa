#include "TestMain.h"

#include <QFileInfo>

#include <cstdio>
#include <span>

namespace quenara::test {

namespace {

NamedTest *last = nullptr;

QString stem(const char *name)
{
    return QFileInfo(QString::fromUtf8(name)).completeBaseName();
}

} // namespace

NamedTest::NamedTest(const char *name, Run run) noexcept : m_name(name), m_run(run), m_next(last)
{
    last = this;
}

int NamedTest::runNamed(int argc, char *argv[])
{
    const std::span<char *> arguments(argv, static_cast<std::size_t>(argc));
    for (const NamedTest *test = last; arguments.size() > 1 && test; test = test->m_next) {
        if (stem(test->m_name) != QString::fromUtf8(arguments[1]))
            continue;
        arguments[1] = arguments[0];
        return test->m_run(argc - 1, argv + 1);
    }
    std::fputs("The first argument names one of these:\n", stderr);
    for (const NamedTest *test = last; test; test = test->m_next)
        std::fprintf(stderr, "%s\n", qPrintable(stem(test->m_name)));
    return 255;
}

} // namespace quenara::test

int main(int argc, char *argv[])
{
    return quenara::test::NamedTest::runNamed(argc, argv);
}
