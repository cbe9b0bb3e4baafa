#include "PreferencesView.h"

#include "AccessibleControls.h"
#include "AppAppearance.h"
#include "RoleLabel.h"
#include "RoundedShapes.h"
#include "SegmentedPicker.h"
#include "ThemeColors.h"

#include <QPainter>
#include <QVBoxLayout>

namespace quenara {

namespace {

constexpr QSize viewSize{430, 230};
constexpr int settingsPadding = 20;
constexpr int titleSpacing = 16;
constexpr int boxPadding = 12;
constexpr int boxSpacing = 12;

/// A rounded box with a fine outline.
class PreferenceBox : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        constexpr double cornerRadius = 8;
        constexpr float outlineOpacity = 0.7F;
        const ZelvoTheme &theme = themeOf(*this);
        QColor outline = theme.border;
        outline.setAlphaF(outlineOpacity);
        const QPainterPath box =
            continuousRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(box, theme.panelBackground);
        painter.strokePath(box, QPen(outline, 1));
    }
};

QStringList appearanceTitles()
{
    QStringList titles;
    for (const AppAppearance appearance : allCases<AppAppearance>())
        titles.append(title(appearance));
    return titles;
}

/// Alt with the first letter of each title: plain letters choose nothing anywhere in the program.
QList<QKeySequence> appearanceShortcuts()
{
    QList<QKeySequence> shortcuts;
    for (const QString &title : appearanceTitles())
        shortcuts.append(QKeySequence(QStringLiteral("Alt+%1").arg(title.front())));
    return shortcuts;
}

} // namespace

PreferencesView::PreferencesView(QWidget *parent)
    : QWidget(parent),
      m_appearances(new SegmentedPicker(QStringLiteral("Appearance"), appearanceTitles()))
{
    setFixedSize(viewSize);
    setAccessibleRole(*this, QAccessible::Pane);
    setAccessibleName(QStringLiteral("Quenara Settings"));
    m_appearances->setShortcuts(appearanceShortcuts());
    auto *note = makeRoleLabel(
        QStringLiteral("note"),
        QStringLiteral("Stage window chrome follows this preference. Slide output keeps the slide "
                       "design colors exactly."));
    note->setWordWrap(true);

    auto *box = new PreferenceBox;
    auto *boxLayout = new QVBoxLayout(box);
    boxLayout->setContentsMargins(boxPadding, boxPadding, boxPadding, boxPadding);
    boxLayout->setSpacing(boxSpacing);
    boxLayout->addWidget(makeRoleLabel(QStringLiteral("preference"), QStringLiteral("Appearance")));
    boxLayout->addWidget(m_appearances);
    boxLayout->addWidget(note);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(settingsPadding, settingsPadding, settingsPadding, settingsPadding);
    layout->setSpacing(titleSpacing);
    layout->addWidget(
        makeRoleLabel(QStringLiteral("sheetTitle"), QStringLiteral("Quenara Settings")));
    layout->addWidget(box);
    layout->addStretch();

    connect(m_appearances, &SegmentedPicker::activated, this,
            [this](int index) { emit appAppearanceChosen(rawValue(AppAppearance(index))); });
}

void PreferencesView::setAppAppearance(const QString &rawValue)
{
    const auto appearance = fromRawValue<AppAppearance>(rawValue);
    m_appearances->setCurrentIndex(appearance ? int(*appearance) : -1);
}

} // namespace quenara
