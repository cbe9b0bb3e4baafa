#include "StageOutputView.h"

#include "RoleLabel.h"
#include "SlideView.h"
#include "WorkspaceStore.h"

#include <QVBoxLayout>

namespace quenara {

namespace {

constexpr int margin = 18;
constexpr int spacing = 14;

} // namespace

StageOutputView::StageOutputView(const WorkspaceStore &store, PictureCache &pictures,
                                 QWidget *parent)
    : QWidget(parent), m_store(store), m_currentTitle(makeRoleLabel(QStringLiteral("heading"))),
      m_currentSlide(new SlideView(pictures)), m_nextTitle(makeRoleLabel(QStringLiteral("heading")))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(spacing);
    layout->addWidget(m_currentTitle);
    layout->addWidget(m_currentSlide, 1);
    layout->addWidget(m_nextTitle);
    connect(&store, &WorkspaceStore::changed, this, &StageOutputView::showStore);
    showStore();
}

void StageOutputView::showStore()
{
    const std::optional<Slide> live = m_store.slideWithID(m_store.liveSlideID());
    const std::optional<Slide> next = m_store.nextSlide();
    m_currentTitle->setText(live ? live->title : QStringLiteral("No live slide"));
    m_currentSlide->setSlide(live);
    m_nextTitle->setText(next ? QStringLiteral("Next: %1").arg(next->title)
                              : QStringLiteral("No next slide"));
}

} // namespace quenara
