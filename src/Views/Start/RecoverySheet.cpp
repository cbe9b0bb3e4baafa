#include "RecoverySheet.h"

#include "ElidedLabel.h"
#include "PlainToolTip.h"
#include "RoleLabel.h"
#include "ShownPath.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLocale>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace quenara {

namespace {

constexpr int recoverySheetWidth = 520;
constexpr int heightForOneWork = 240;
constexpr int heightForSeveralWorks = 350;
constexpr int recoveryPadding = 20;
constexpr int recoverySpacing = 12;
constexpr int recoveryRowHeight = 74;
constexpr int recoveryRowMargin = 12;
constexpr int recoveryRowSpacing = 4;
constexpr int recoveryButtonSpacing = 8;

QString titleOf(const LeftOverWork &work)
{
    return work.projectName.isEmpty() ? QStringLiteral("Untitled") : work.projectName;
}

QString fileOf(const LeftOverWork &work)
{
    return work.file ? shownPath(*work.file) : QStringLiteral("Not saved to a file yet");
}

QString detailOf(const LeftOverWork &work)
{
    const QString time = QLocale().toString(work.time, QLocale::ShortFormat);
    return work.hasUnsavedChanges ? QStringLiteral("%1, with unsaved changes").arg(time) : time;
}

/// The project's name over its file and what else is known of it.
QPushButton *makeWorkRow(const LeftOverWork &work)
{
    auto *row = new QPushButton;
    row->setProperty("role", QStringLiteral("choice"));
    row->setCheckable(true);
    row->setAutoDefault(false);
    row->setFixedHeight(recoveryRowHeight);
    row->setToolTip(plainToolTip(fileOf(work)));
    row->setAccessibleName(titleOf(work));
    row->setAccessibleDescription(QStringLiteral("%1, %2").arg(fileOf(work), detailOf(work)));
    auto *name = new ElidedLabel(QStringLiteral("rowTitle"));
    name->setText(titleOf(work));
    auto *file = new ElidedLabel(QStringLiteral("path"));
    file->setText(fileOf(work));
    file->setElideMode(Qt::ElideMiddle);
    auto *layout = new QVBoxLayout(row);
    layout->setContentsMargins(recoveryRowMargin, 0, recoveryRowMargin, 0);
    layout->setSpacing(recoveryRowSpacing);
    layout->addStretch();
    layout->addWidget(name);
    layout->addWidget(file);
    layout->addWidget(makeRoleLabel(QStringLiteral("path"), detailOf(work)));
    layout->addStretch();
    return row;
}

} // namespace

RecoverySheet::RecoverySheet(const QList<LeftOverWork> &works, QWidget *parent)
    : QDialog(parent), m_rows(new QVBoxLayout), m_choice(new QButtonGroup(this))
{
    setObjectName(QStringLiteral("recoverySheet"));
    setWindowTitle(QStringLiteral("Quenara"));
    setFixedSize(recoverySheetWidth, works.size() == 1 ? heightForOneWork : heightForSeveralWorks);

    auto *rows = new QWidget;
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(recoverySpacing);
    rows->setLayout(m_rows);
    auto *list = new QScrollArea;
    list->setWidgetResizable(true);
    list->setFrameShape(QFrame::NoFrame);
    list->setFocusPolicy(Qt::NoFocus);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setWidget(rows);

    auto *hint = makeRoleLabel(
        QStringLiteral("note"),
        QStringLiteral("Continue with the work and the show as they stood, or discard them. What "
                       "you leave is offered again at the next start."));
    hint->setWordWrap(true);
    auto *discardButton = new QPushButton(QStringLiteral("Discard"));
    discardButton->setAutoDefault(false);
    discardButton->setToolTip(buttonToolTip(discardButton->text(), {}));
    auto *continueButton = new QPushButton(QStringLiteral("Continue"));
    continueButton->setProperty("look", QStringLiteral("primary"));
    continueButton->setDefault(true);
    continueButton->setToolTip(buttonToolTip(continueButton->text(), {}));
    connect(discardButton, &QPushButton::clicked, this,
            [this] { emit discarded(m_choice->checkedId()); });
    connect(continueButton, &QPushButton::clicked, this,
            [this] { emit continued(m_choice->checkedId()); });

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(recoveryButtonSpacing);
    buttons->addStretch();
    buttons->addWidget(discardButton);
    buttons->addWidget(continueButton);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(recoveryPadding, recoveryPadding, recoveryPadding, recoveryPadding);
    layout->setSpacing(recoverySpacing);
    layout->addWidget(
        makeRoleLabel(QStringLiteral("sheetTitle"), QStringLiteral("Quenara ended unexpectedly")));
    layout->addWidget(hint);
    layout->addWidget(list, 1);
    layout->addLayout(buttons);
    setWorks(works);
    continueButton->setFocus();
}

void RecoverySheet::setWorks(const QList<LeftOverWork> &works)
{
    while (QLayoutItem *item = m_rows->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (qsizetype i = 0; i < works.size(); ++i) {
        QPushButton *row = makeWorkRow(works.at(i));
        m_choice->addButton(row, int(i));
        m_rows->addWidget(row);
        row->setChecked(i == 0);
    }
    m_rows->addStretch();
}

} // namespace quenara
