#pragma once

#include <QObject>
#include <QString>

namespace quenara::planted {

class Listener : public QObject
{
public:
    virtual bool event(QEvent *event); // fault: modernize-use-override
    int count() { return m_count; } // fault: readability-make-member-function-const

private:
    int m_count = 0;
    int wrongName = 0; // fault: readability-identifier-naming
};

int lengthOf(const QString &t); // fault: readability-inconsistent-declaration-parameter-name

} // namespace quenara::planted
