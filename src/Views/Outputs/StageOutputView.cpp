#include "StageOutputView.h"

#include "ElidedLabel.h"
#include "FittedText.h"
#include "OutputModeBadge.h"
#include "Panels.h"
#include "RoleLabel.h"
#include "SlideView.h"
#include "StageTexts.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <utility>

namespace quenara {

namespace {

constexpr BadgeLook badgeLook{.pixelSize = 13, .horizontalPadding = 10, .verticalPadding = 6};
constexpr int padding = 18;
constexpr int headerSpacing = 12;
constexpr int sectionSpacing = 4;
constexpr int panelSpacing = 14;
constexpr int captionSpacing = 10;
constexpr int separatorWidth = 1; // as in the style sheet
constexpr int nextPanelWidth = 390;
constexpr int currentSlideHeight = 230;
constexpr int nextSlideHeight = 185;
constexpr double slideCornerRadius = 8;
constexpr FittedText::Setting currentSetting{
    .size = 44, .weight = TextFontWeight::bold, .limits = {.smallestFit = 0.52, .lineMaximum = 7}};
constexpr FittedText::Setting nextSetting{.size = 31,
                                          .weight = TextFontWeight::semibold,
                                          .limits = {.smallestFit = 0.55, .lineMaximum = 5}};

/// Describes \a widget to screen readers, which take what it shows for its name.
template<class Widget>
Widget *described(Widget *widget, const QString &name, const QString &description)
{
    widget->setObjectName(name);
    widget->setAccessibleDescription(description);
    return widget;
}

/// Puts caption, slide and words below one another.
void fillPanel(QVBoxLayout &panel, QLayout *caption, SlideView *slide, FittedText *words)
{
    panel.setSpacing(0);
    panel.addLayout(caption);
    panel.addSpacing(panelSpacing);
    panel.addWidget(slide);
    panel.addSpacing(panelSpacing - FittedText::headroom);
    panel.addWidget(words, 1);
    panel.addStretch();
}

SlideView *makeSlideView(RenderCaches &caches, int height, const QString &name)
{
    auto *view = new SlideView(caches);
    view->setAccessibleName(name);
    view->setFixedHeight(height);
    view->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    view->setCornerRadius(slideCornerRadius);
    return view;
}

} // namespace

StageOutputView::StageOutputView(const WorkspaceStore &store, RenderCaches &caches,
                                 ClockView::Now now, QWidget *parent)
    : QWidget(parent), m_store(store), m_caches(caches)
{
    setPanelName(*this, QStringLiteral("stageMonitor"));
    // The clock is written as the user has times written, whatever the language of the program.
    setLocale(QLocale::system());
    auto *panels = new QHBoxLayout;
    panels->setSpacing(0);
    panels->addWidget(makeCurrentPanel(), 1);
    panels->addWidget(makeNextPanel());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader(std::move(now)));
    layout->addLayout(panels, 1);

    // changed() comes after the signals that have the audience's window repainted.
    connect(&store, &WorkspaceStore::changed, this, &StageOutputView::showStore);
    showStore();
}

QWidget *StageOutputView::makeHeader(ClockView::Now now)
{
    m_section = described(new ElidedLabel(QStringLiteral("stageSection")),
                          QStringLiteral("currentSection"), QStringLiteral("Current section"));
    m_slideCount = described(makeRoleLabel(QStringLiteral("stageCount")),
                             QStringLiteral("slideCount"), QStringLiteral("Place in the show"));
    m_outputMode = described(new OutputModeBadge(badgeLook), QStringLiteral("outputMode"),
                             QStringLiteral("Output mode"));
    auto *clock = described(new ClockView(std::move(now)), QStringLiteral("stageClock"),
                            QStringLiteral("Time"));
    auto *place = new QVBoxLayout;
    place->setSpacing(sectionSpacing);
    place->addWidget(m_section);
    place->addWidget(m_slideCount);

    QWidget *header = makePanel(QStringLiteral("stageHeader"));
    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins(padding, padding, padding, padding + separatorWidth);
    layout->setSpacing(headerSpacing);
    layout->addLayout(place, 1);
    layout->addWidget(clock);
    layout->addWidget(m_outputMode);
    return header;
}

QWidget *StageOutputView::makeCurrentPanel()
{
    m_currentSlide = makeSlideView(m_caches, currentSlideHeight, QStringLiteral("Current slide"));
    m_currentText = described(new FittedText(currentSetting, m_caches),
                              QStringLiteral("currentText"), QStringLiteral("Current words"));

    auto *caption = new QHBoxLayout;
    caption->addWidget(makeRoleLabel(QStringLiteral("currentCaption"), QStringLiteral("CURRENT")));

    auto *panel = new QWidget;
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(padding, padding, padding, padding);
    fillPanel(*layout, caption, m_currentSlide, m_currentText);
    return panel;
}

QWidget *StageOutputView::makeNextPanel()
{
    m_queuedTitle = described(new ElidedLabel(QStringLiteral("queuedTitle")),
                              QStringLiteral("queuedTitle"), QStringLiteral("Queued slide"));
    m_nextSlide = makeSlideView(m_caches, nextSlideHeight, QStringLiteral("Next slide"));
    m_nextText = described(new FittedText(nextSetting, m_caches), QStringLiteral("nextText"),
                           QStringLiteral("Next words"));
    auto *caption = new QHBoxLayout;
    caption->setSpacing(captionSpacing);
    caption->addWidget(makeRoleLabel(QStringLiteral("nextCaption"), QStringLiteral("NEXT")));
    caption->addWidget(m_queuedTitle, 1);

    QWidget *panel = makePanel(QStringLiteral("nextPanel"));
    panel->setFixedWidth(nextPanelWidth);
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(padding + separatorWidth, padding, padding, padding);
    fillPanel(*layout, caption, m_nextSlide, m_nextText);
    return panel;
}

void StageOutputView::showStore()
{
    const StageTexts texts = stageTexts(m_store.state());
    const std::optional<Slide> queued = m_store.slideWithID(m_store.queuedSlideID());
    m_section->setText(texts.currentSectionTitle);
    m_slideCount->setText(texts.slideCountText);
    m_outputMode->setMode(m_store.outputMode());
    m_currentSlide->setSlide(m_store.slideWithID(m_store.liveSlideID()));
    m_currentText->setText(texts.currentStageText);
    m_queuedTitle->setText(queued ? queued->title : QString());
    m_nextSlide->setSlide(m_store.nextSlide());
    m_nextText->setText(texts.nextStageText);
}

} // namespace quenara
