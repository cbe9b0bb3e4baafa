#include "DisplayOutputView.h"

#include "HoldingScreenView.h"
#include "SlideRendererView.h"
#include "WorkspaceStore.h"

#include <QGuiApplication>
#include <QPainter>

#include <utility>

namespace quenara {

namespace {

/// Not on Wayland. Qt waits there, in a painting that comes before the compositor is done with the
/// last ones, for that, and handles events meanwhile: a screen that goes then takes away the window
/// that is being painted, and ends the program.
bool mayPaintAtOnce()
{
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace

DisplayOutputView::DisplayOutputView(const WorkspaceStore &store, RenderCaches &caches,
                                     QWidget *parent)
    : QWidget(parent), m_store(store), m_caches(caches), m_content(storeContent()), m_ahead(caches)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::BlankCursor);
    connect(&store, &WorkspaceStore::liveSlideIDChanged, this, &DisplayOutputView::showNow);
    connect(&store, &WorkspaceStore::outputModeChanged, this, &DisplayOutputView::showNow);
    connect(&store, &WorkspaceStore::projectChanged, this, &DisplayOutputView::showSoon);
    connect(&store, &WorkspaceStore::changed, this, &DisplayOutputView::lookAhead);
    connect(&store, &WorkspaceStore::gestureEnded, this, &DisplayOutputView::lookAhead);
}

DisplayOutputView::Content DisplayOutputView::storeContent() const
{
    const OutputMode mode = m_store.outputMode();
    if (mode != OutputMode::live)
        return {.mode = mode, .slide = std::nullopt};
    return {.mode = mode, .slide = m_store.slideWithID(m_store.liveSlideID())};
}

/// Takes what the store has to show. Returns false if that is shown already.
bool DisplayOutputView::takeContent()
{
    Content content = storeContent();
    if (content == m_content)
        return false;
    m_content = std::move(content);
    return true;
}

/// Paints what was sent before any other window is painted.
void DisplayOutputView::showNow()
{
    if (!takeContent())
        return;
    if (mayPaintAtOnce()) {
        repaint();
    } else {
        update();
    }
}

/// Paints with the next event: edits of the live slide may come faster than they can be painted.
void DisplayOutputView::showSoon()
{
    if (takeContent())
        update();
}

/// Whatever is sent next by a step or by Go Live, its images are there. The slide that is worked on
/// waits until that ends: a layer that is dragged has another size with each move.
void DisplayOutputView::lookAhead()
{
    QList<Slide> slides = isVisible() ? m_store.slidesAhead() : QList<Slide>();
    if (m_store.hasOpenGesture()) {
        slides.removeIf(
            [this](const Slide &slide) { return slide.id == m_store.selectedSlideID(); });
    }
    m_ahead.prepare(slides, size(), devicePixelRatioF());
}

void DisplayOutputView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    lookAhead();
}

void DisplayOutputView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    lookAhead();
}

void DisplayOutputView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    lookAhead();
}

void DisplayOutputView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const SlideRendererView slide{.slide = m_content.slide};
    // Black goes only where the slide does not cover it: the first write of a pixel is the slow
    // one.
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
