#pragma once

#include "ImagesAhead.h"
#include "WorkspaceState.h"

#include <QWidget>

#include <optional>

namespace quenara {

struct RenderCaches;
class WorkspaceStore;

/// What the audience sees: the live slide, black, or the holding screen, as the output mode says.
/// Opaque and without controls. The colours do not follow the appearance.
class DisplayOutputView : public QWidget
{
    Q_OBJECT

public:
    DisplayOutputView(const WorkspaceStore &store, RenderCaches &caches, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    /// All that is shown.
    struct Content
    {
        OutputMode mode = OutputMode::live;
        std::optional<Slide> slide; ///< only while the mode is live

        bool operator==(const Content &) const = default;
    };

    Content storeContent() const;
    bool takeContent();
    void showNow();
    void showSoon();
    void lookAhead();

    const WorkspaceStore &m_store;
    RenderCaches &m_caches;
    Content m_content;
    ImagesAhead m_ahead;
};

} // namespace quenara
