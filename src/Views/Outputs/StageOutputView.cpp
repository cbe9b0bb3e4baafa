#include "StageOutputView.h"

#include "ElidedLabel.h"
#include "FittedText.h"
#include "Fonts.h"
#include "OutputModeBadge.h"
#include "Panels.h"
#include "QtWorkarounds.h"
#include "RoleLabel.h"
#include "SlideView.h"
#include "StageTexts.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

constexpr BadgeLook badgeLook{
    .pixelSize = 13, .horizontalPadding = 10, .verticalPadding = 6, .cornerRadius = 5};
constexpr int padding = 18;
constexpr int headerSpacing = 12;
constexpr int sectionSpacing = 4;
constexpr int panelSpacing = 14;
constexpr int captionSpacing = 10;
constexpr int separatorWidth = 1;
constexpr int nextPanelWidth = 390;
constexpr int currentSlideHeight = 230;
constexpr int nextSlideHeight = 185;
constexpr double slideCornerRadius = 8;
constexpr double slideLineWidth = 1;
constexpr double sectionSize = 22;
constexpr double countSize = 20;
constexpr double clockSize = 34;
constexpr double captionSize = 13;
constexpr double queuedTitleSize = 16;
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

int scaled(int length, double scale)
{
    return qRound(length * scale);
}

BadgeLook scaled(const BadgeLook &look, double scale)
{
    return {.pixelSize = look.pixelSize * scale,
            .horizontalPadding = look.horizontalPadding * scale,
            .verticalPadding = look.verticalPadding * scale,
            .cornerRadius = look.cornerRadius * scale};
}

QFont countFont(double scale)
{
    QFont font = systemFont(countSize * scale, QFont::Medium);
    font.setFamily(QStringLiteral("monospace"));
    return font;
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

void StageOutputView::setMagnified(bool isMagnified)
{
    m_isMagnified = isMagnified;
    followSize();
}

void StageOutputView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    followSize();
}

/// Nothing is cut where the shape is another one than usual: what there is more of in one direction
/// is room.
void StageOutputView::followSize()
{
    const double scale = m_isMagnified
        ? std::min(width() / double(usualSize.width()), height() / double(usualSize.height()))
        : 1;
    if (!(scale > 0) || std::exchange(m_scale, scale) == scale)
        return;
    // The style sheet has the lines between the panels one point wide.
    setStyleSheet(scale == 1 ? QString()
                             : QStringLiteral("#stageHeader { border-bottom-width: %1px; }"
                                              "#nextPanel { border-left-width: %1px; }")
                                   .arg(scaled(separatorWidth, scale)));
    for (const Measure &measure : m_measures)
        measure(scale);
    layOutNow();
}

/// Has \a measure set lengths and fonts, which are those of a window times a scale.
void StageOutputView::measured(const Measure &measure)
{
    m_measures.append(measure);
    measure(m_scale);
}

void StageOutputView::setFontSize(QWidget &widget, double size, QFont::Weight weight)
{
    measured([&widget, size, weight](double scale) {
        widget.setFont(systemFont(size * scale, weight));
    });
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
    place->addWidget(m_section);
    place->addWidget(m_slideCount);

    QWidget *header = makePanel(QStringLiteral("stageHeader"));
    auto *layout = new QHBoxLayout(header);
    layout->addLayout(place, 1);
    layout->addWidget(clock);
    layout->addWidget(m_outputMode);
    setFontSize(*m_section, sectionSize, QFont::DemiBold);
    setFontSize(*clock, clockSize, QFont::Bold);
    measured([this, layout, place](double scale) {
        const int edge = scaled(padding, scale);
        layout->setContentsMargins(edge, edge, edge, edge + scaled(separatorWidth, scale));
        layout->setSpacing(scaled(headerSpacing, scale));
        place->setSpacing(scaled(sectionSpacing, scale));
        m_slideCount->setFont(countFont(scale));
        m_outputMode->setLook(scaled(badgeLook, scale));
    });
    return header;
}

SlideView *StageOutputView::makeSlideView(int height, const QString &name)
{
    auto *view = new SlideView(m_caches);
    view->setAccessibleName(name);
    view->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    measured([view, height](double scale) {
        view->setFixedHeight(scaled(height, scale));
        view->setCornerRadius(slideCornerRadius * scale);
        view->setLineWidth(slideLineWidth * scale);
    });
    return view;
}

/// Puts caption, slide and words below one another.
void StageOutputView::fillPanel(QVBoxLayout &panel, QLayout *caption, SlideView *slide,
                                FittedText *words)
{
    auto *aboveSlide = new QSpacerItem(0, 0);
    auto *aboveWords = new QSpacerItem(0, 0);
    panel.setSpacing(0);
    panel.addLayout(caption);
    panel.addSpacerItem(aboveSlide);
    panel.addWidget(slide);
    panel.addSpacerItem(aboveWords);
    panel.addWidget(words, 1);
    panel.addStretch();
    measured([&panel, aboveSlide, aboveWords, words](double scale) {
        words->setScale(scale);
        const auto setHeight = [](QSpacerItem &gap, int height) {
            gap.changeSize(0, height, QSizePolicy::Minimum, QSizePolicy::Fixed);
        };
        setHeight(*aboveSlide, scaled(panelSpacing, scale));
        setHeight(*aboveWords, scaled(panelSpacing, scale) - words->headroom());
        panel.invalidate();
    });
}

QWidget *StageOutputView::makeCurrentPanel()
{
    m_currentSlide = makeSlideView(currentSlideHeight, QStringLiteral("Current slide"));
    m_currentText = described(new FittedText(currentSetting, m_caches),
                              QStringLiteral("currentText"), QStringLiteral("Current words"));

    auto *caption = new QHBoxLayout;
    QLabel *title = makeRoleLabel(QStringLiteral("currentCaption"), QStringLiteral("CURRENT"));
    setFontSize(*title, captionSize, QFont::Bold);
    caption->addWidget(title);

    auto *panel = new QWidget;
    auto *layout = new QVBoxLayout(panel);
    measured([layout](double scale) {
        const int edge = scaled(padding, scale);
        layout->setContentsMargins(edge, edge, edge, edge);
    });
    fillPanel(*layout, caption, m_currentSlide, m_currentText);
    return panel;
}

QWidget *StageOutputView::makeNextPanel()
{
    m_queuedTitle = described(new ElidedLabel(QStringLiteral("queuedTitle")),
                              QStringLiteral("queuedTitle"), QStringLiteral("Queued slide"));
    m_nextSlide = makeSlideView(nextSlideHeight, QStringLiteral("Next slide"));
    m_nextText = described(new FittedText(nextSetting, m_caches), QStringLiteral("nextText"),
                           QStringLiteral("Next words"));
    auto *caption = new QHBoxLayout;
    QLabel *title = makeRoleLabel(QStringLiteral("nextCaption"), QStringLiteral("NEXT"));
    setFontSize(*title, captionSize, QFont::Bold);
    setFontSize(*m_queuedTitle, queuedTitleSize, QFont::Medium);
    caption->addWidget(title);
    caption->addWidget(m_queuedTitle, 1);

    QWidget *panel = makePanel(QStringLiteral("nextPanel"));
    auto *layout = new QVBoxLayout(panel);
    measured([panel, layout, caption](double scale) {
        const int edge = scaled(padding, scale);
        panel->setFixedWidth(scaled(nextPanelWidth, scale));
        layout->setContentsMargins(edge + scaled(separatorWidth, scale), edge, edge, edge);
        caption->setSpacing(scaled(captionSpacing, scale));
    });
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
