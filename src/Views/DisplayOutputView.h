#pragma once

#include <QWidget>

namespace quenara {

class PictureCache;
class WorkspaceStore;

/// What the audience sees: the live slide, black, or the holding screen, as the output mode says.
/// Opaque, without controls; the colours do not follow the appearance.
class DisplayOutputView : public QWidget
{
    Q_OBJECT

public:
    DisplayOutputView(const WorkspaceStore &store, PictureCache &pictures,
                      QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const WorkspaceStore &m_store;
    PictureCache &m_pictures;
};

} // namespace quenara
