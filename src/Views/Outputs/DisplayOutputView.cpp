#include "DisplayOutputView.h"

#include "HoldingScreenView.h"
#include "SlideRendererView.h"
#include "WorkspaceStore.h"

#include <QPainter>

#include <utility>

namespace quenara {

DisplayOutputView::DisplayOutputView(const WorkspaceStore &store, RenderCaches &caches,
                                     QWidget *parent)
    : QWidget(parent), m_store(store), m_caches(caches), m_content(storeContent())
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::BlankCursor);
    connect(&store, &WorkspaceStore::liveSlideIDChanged, this, &DisplayOutputView::showNow);
    connect(&store, &WorkspaceStore::outputModeChanged, this, &DisplayOutputView::showNow);
    connect(&store, &WorkspaceStore::projectChanged, this, &DisplayOutputView::showSoon);
}

DisplayOutputView::Content DisplayOutputView::storeContent() const
{
    const OutputMode mode = m_store.outputMode();
    if (mode != OutputMode::live)
        return {.mode = mode, .slide = std::nullopt};
    return {.mode = mode, .slide = m_store.slideWithID(m_store.liveSlideID())};
}

/// False if what the store has to show is shown already.
bool DisplayOutputView::takeContent()
{
    Content content = storeContent();
    if (content == m_content)
        return false;
    m_content = std::move(content);
    return true;
}

/// What was sent is painted before any other window is.
void DisplayOutputView::showNow()
{
    if (takeContent())
        repaint();
}

/// Edits of the live slide may come faster than they can be painted.
void DisplayOutputView::showSoon()
{
    if (takeContent())
        update();
}

void DisplayOutputView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const SlideRendererView slide{.slide = m_content.slide};
    // Each pixel is written once where it can be: the first time, it has to be fetched.
    for (const QRect &part : QRegion(rect()) - slide.hiddenRect(rect()))
        painter.fillRect(part, Qt::black);
    switch (m_content.mode) {
    case OutputMode::live:
        slide.paint(painter, rect(), m_caches);
        break;
    case OutputMode::blackout:
        break;
    case OutputMode::logo:
        HoldingScreenView().paint(painter, rect());
        break;
    }
}

} // namespace quenara
