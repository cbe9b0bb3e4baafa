#pragma once

#include <QObject>

namespace quenara {

/// Tells, within the event loop, that the system or a shell asks the process to end: SIGTERM,
/// SIGHUP or SIGINT. One that was ignored when the process began stays ignored, as `nohup` wants
/// it. There is one object at a time; it puts back what was there before it.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;

signals:
    void received();
};

} // namespace quenara
