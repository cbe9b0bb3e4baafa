// Faults that clang-tidy must find, each on the line that names its check, in a source that reads
// as many system headers as others do. scripts/tidy fails when one is missed.

#include "Planted.h"

#include <QList>
#include <QStringList>
#include <QWidget>

#include <optional>
#include <string>
#include <utility>

using std::optional; // fault: misc-unused-using-decls

namespace quenara::planted {

namespace {

struct wrong_case // fault: readability-identifier-naming
{
    static int one() { return 1; }
};

QString copied(QString text) // fault: performance-unnecessary-value-param
{
    return text.toUpper();
}

double half(int whole)
{
    return whole / 2; // fault: bugprone-integer-division
}

bool isNothing(const std::string &text)
{
    return text.size() == 0; // fault: readability-container-size-empty
}

bool isLong(const std::string &text)
{
    if (isNothing(text)) {
        return false;
    } else { // fault: readability-else-after-return
        return text.size() > 10 ? true : false; // fault: readability-simplify-boolean-expr
    }
}

std::string movedTwice(std::string text)
{
    std::string taken = std::move(text);
    return taken + text; // fault: bugprone-use-after-move
}

const QWidget *nobody()
{
    return 0; // fault: modernize-use-nullptr
}

qsizetype total(const QList<QStringList> &lists)
{
    qsizetype sum = 0;
    for (const QStringList list : lists) // fault: performance-for-range-copy
        sum += list.size();
    return sum;
}

int staticThrough(const wrong_case &instance)
{
    return instance.one(); // fault: readability-static-accessed-through-instance
}

unsigned large()
{
    std::string empty = ""; // fault: readability-redundant-string-init
    return 5u + unsigned(empty.size()); // fault: readability-uppercase-literal-suffix
}

bool three(int number)
{
    for (int i = 0; i < number; ++i) // fault: readability-braces-around-statements
        if (large() == unsigned(i))
            return true;
    return false;
}

} // namespace

bool Listener::event(QEvent *event)
{
    return QObject::event(event) || wrongName > 0 || half(3) > 1 || three(3) || nobody();
}

int lengthOf(const QString &words)
{
    return int(copied(words).size() + total({})) + staticThrough({}) + int(isLong(movedTwice({})));
}

} // namespace quenara::planted
