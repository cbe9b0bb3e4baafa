#pragma once

#include <QObject>

namespace quenara {

/// The windows for the audience and for the stage, as far as the operator's views switch them.
class OutputSwitches : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual bool isDisplayWindowOpen() const = 0;
    virtual bool isStageWindowOpen() const = 0;
    virtual void toggleDisplayWindow() = 0;
    virtual void toggleStageWindow() = 0;

signals:
    void changed();
};

} // namespace quenara
