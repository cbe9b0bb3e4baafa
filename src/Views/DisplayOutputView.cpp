#include "DisplayOutputView.h"

#include "HoldingScreenView.h"
#include "SlideRendererView.h"
#include "WorkspaceStore.h"

#include <QPainter>

namespace quenara {

DisplayOutputView::DisplayOutputView(const WorkspaceStore &store, PictureCache &pictures,
                                     QWidget *parent)
    : QWidget(parent), m_store(store), m_pictures(pictures)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::BlankCursor);
    const auto redraw = qOverload<>(&QWidget::update);
    connect(&store, &WorkspaceStore::liveSlideIDChanged, this, redraw);
    connect(&store, &WorkspaceStore::outputModeChanged, this, redraw);
    connect(&store, &WorkspaceStore::projectChanged, this, redraw);
}

void DisplayOutputView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    switch (m_store.outputMode()) {
    case OutputMode::live:
        SlideRendererView{.slide = m_store.slideWithID(m_store.liveSlideID()),
                          .pictures = &m_pictures}
            .paint(painter, rect());
        break;
    case OutputMode::blackout:
        break;
    case OutputMode::logo:
        HoldingScreenView().paint(painter, rect());
        break;
    }
}

} // namespace quenara
