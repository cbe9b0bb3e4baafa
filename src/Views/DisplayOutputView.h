#pragma once

#include <QWidget>

namespace quenara {

class WorkspaceStore;

/// What the audience sees: the live slide, black, or the holding screen, as the output mode says.
/// Opaque, without controls; the colours do not follow the appearance.
class DisplayOutputView : public QWidget
{
    Q_OBJECT

public:
    explicit DisplayOutputView(const WorkspaceStore &store, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const WorkspaceStore &m_store;
};

} // namespace quenara
