#include "GoToSlideSheet.h"

#include "ElidedText.h"
#include "Fonts.h"
#include "PlainToolTip.h"
#include "PressableList.h"
#include "RoleLabel.h"
#include "RoundedShapes.h"
#include "TextField.h"
#include "ThemeColors.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <utility>

namespace quenara {

namespace {

constexpr QSize sheetSize{440, 460};
constexpr int padding = 20;
constexpr int spacing = 12;
constexpr int buttonSpacing = 8;

constexpr int rowHeight = 44;
constexpr double resultMargin = 4;
constexpr double textMargin = 10;
constexpr double resultRadius = 6;
constexpr double titleSize = 13;
constexpr double placeSize = 11;

/// What tells slides of the same title apart: the section, and how the text begins.
QString placeOf(const FlattenedSlide &slide)
{
    constexpr qsizetype longestBeginning = 200; // no row has room for more
    const QString beginning = slide.slide.body.left(longestBeginning).simplified();
    return beginning.isEmpty()
        ? slide.serviceItemTitle
        : QStringLiteral("%1 \u00b7 %2").arg(slide.serviceItemTitle, beginning);
}

/// Draws a slide's title above its place.
class RowDelegate : public QStyledItemDelegate
{
public:
    explicit RowDelegate(QAbstractItemView &list) : QStyledItemDelegate(&list), m_list(list) {}

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex & /*index*/) const override
    {
        return {option.rect.width(), rowHeight};
    }

private:
    QAbstractItemView &m_list;
};

} // namespace

/// The slides that were found, as rows of a list.
class FoundSlides : public QAbstractListModel
{
public:
    enum Role { idRole = Qt::UserRole, placeRole };

    using QAbstractListModel::QAbstractListModel;

    const QList<FlattenedSlide> &show() const { return m_show; }
    void setShow(const QList<FlattenedSlide> &show) { m_show = show; }

    /// \a places are indices into the show.
    void setFound(const QList<qsizetype> &places)
    {
        beginResetModel();
        m_places = places;
        endResetModel();
    }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : int(m_places.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        const FlattenedSlide &slide = m_show.at(m_places.at(index.row()));
        switch (role) {
        case Qt::DisplayRole:
            return slide.slide.title;
        case idRole:
            return slide.id();
        case placeRole:
        case Qt::AccessibleDescriptionRole:
            return placeOf(slide);
        default:
            return {};
        }
    }

private:
    QList<FlattenedSlide> m_show;
    QList<qsizetype> m_places;
};

namespace {

void RowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                        const QModelIndex &index) const
{
    const ZelvoTheme &theme = ZelvoTheme::current(colorSchemeOf(option.palette));
    const QRectF row = QRectF(option.rect).adjusted(resultMargin, 1, -resultMargin, -1);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (index == m_list.currentIndex()) {
        fillRoundedRect(*painter, row, resultRadius, theme.selection);
    } else if (option.state & QStyle::State_MouseOver) {
        fillRoundedRect(*painter, row, resultRadius, theme.panelSecondaryBackground);
    }
    const QRectF text = row.adjusted(textMargin, 3, -textMargin, -3);
    const QSizeF line(text.width(), text.height() / 2);
    drawElidedText(*painter, index.data(Qt::DisplayRole).toString(),
                   systemFont(titleSize, QFont::Medium), theme.primaryText, {text.topLeft(), line});
    drawElidedText(*painter, index.data(FoundSlides::placeRole).toString(),
                   systemFont(placeSize, QFont::Normal), theme.secondaryText,
                   {text.topLeft() + QPointF(0, line.height()), line});
    painter->restore();
}

} // namespace

/// The list of those. One of them is always chosen, while the keyboard is elsewhere.
class FoundList : public PressableList
{
public:
    explicit FoundList(std::function<void(const QModelIndex &)> chosen)
        : m_chosen(std::move(chosen))
    {
        setObjectName(QStringLiteral("foundSlides"));
        setAccessibleName(QStringLiteral("Slides Found"));
        setFocusPolicy(Qt::NoFocus);
        setSelectionMode(NoSelection);
        setEditTriggers(NoEditTriggers);
        setAutoScroll(false); // else a row in part in sight moves away under a click
        setUniformItemSizes(true);
        setMouseTracking(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollMode(ScrollPerPixel);
        setItemDelegate(new RowDelegate(*this));
        connect(this, &QListView::clicked, this, &FoundList::choose);
    }

    void choose(const QModelIndex &index) override { m_chosen(index); }
    bool isChosen(const QModelIndex &index) const override { return index == currentIndex(); }

    /// Returns false if \a key does not move in the list.
    bool moveBy(int key)
    {
        const int page = std::max(1, viewport()->height() / rowHeight - 1);
        const int rows = key == Qt::Key_Up ? -1
            : key == Qt::Key_Down          ? 1
            : key == Qt::Key_PageUp        ? -page
            : key == Qt::Key_PageDown      ? page
                                           : 0;
        if (rows != 0 && model()->rowCount() > 0) {
            const int row = currentIndex().row() + rows;
            setCurrentIndex(model()->index(std::clamp(row, 0, model()->rowCount() - 1), 0));
            scrollTo(currentIndex());
        }
        return rows != 0;
    }

private:
    std::function<void(const QModelIndex &)> m_chosen;
};

GoToSlideSheet::GoToSlideSheet(WorkspaceStore &store, QWidget *parent)
    : QDialog(parent), m_store(store), m_search({}), m_found(new FoundSlides(this))
{
    setObjectName(QStringLiteral("goToSlideSheet"));
    setWindowTitle(QStringLiteral("Go to Slide"));
    resize(sheetSize);
    setMinimumSize(sheetSize);

    m_words = new QLineEdit;
    m_words->setAccessibleName(QStringLiteral("Words"));
    m_words->setPlaceholderText(QStringLiteral("Section, title or words of a slide"));
    m_words->setMaxLength(longestLine);
    m_words->setClearButtonEnabled(false);
    m_list = new FoundList([this](const QModelIndex &slide) { choose(slide); });
    m_list->setModel(m_found);
    m_nothing =
        makeRoleLabel(QStringLiteral("hint"), QStringLiteral("No slide has all of these words."));
    m_nothing->setAlignment(Qt::AlignCenter);
    auto *results = new QStackedWidget;
    results->addWidget(m_list);
    results->addWidget(m_nothing);

    auto *cancel = new QPushButton(QStringLiteral("Cancel"));
    m_goLive = new QPushButton(QStringLiteral("Go Live"));
    m_queue = new QPushButton(QStringLiteral("Queue"));
    cancel->setToolTip(buttonToolTip(cancel->text(), Qt::Key_Escape));
    m_goLive->setToolTip(buttonToolTip(QStringLiteral("Select, queue and send the slide live"),
                                       Qt::CTRL | Qt::Key_Return));
    m_queue->setToolTip(
        buttonToolTip(QStringLiteral("Select and queue the slide"), Qt::Key_Return));
    m_queue->setProperty("look", QStringLiteral("primary"));
    m_queue->setDefault(true);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(buttonSpacing);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(m_goLive);
    buttons->addWidget(m_queue);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(spacing);
    layout->addWidget(makeRoleLabel(QStringLiteral("sheetTitle"), QStringLiteral("Go to Slide")));
    layout->addWidget(m_words);
    layout->addWidget(results, 1);
    layout->addLayout(buttons);

    connect(m_words, &QLineEdit::textChanged, this, &GoToSlideSheet::find);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_goLive, &QPushButton::clicked, this, &GoToSlideSheet::sendLive);
    connect(m_queue, &QPushButton::clicked, this, [this] { choose(m_list->currentIndex()); });
    connect(&store, &WorkspaceStore::projectChanged, this, &GoToSlideSheet::searchShow);
    searchShow();
    m_words->setFocus();
}

void GoToSlideSheet::searchShow()
{
    m_found->setShow(m_store.flattenedSlides());
    m_search = SlideSearch(m_found->show());
    find();
}

void GoToSlideSheet::find()
{
    const QString words = m_words->text();
    const QList<qsizetype> found = m_search.find(words);
    m_found->setFound(found);
    const auto live = m_store.positionOf(m_store.liveSlideID());
    const qsizetype likeliest = m_search.likeliest(found, words, live ? live->absolute : -1);
    const auto row = std::lower_bound(found.cbegin(), found.cend(), likeliest) - found.cbegin();
    m_list->setCurrentIndex(m_found->index(int(row)));
    m_list->scrollTo(m_list->currentIndex(), QAbstractItemView::PositionAtCenter);
    qobject_cast<QStackedWidget *>(m_nothing->parentWidget())
        ->setCurrentWidget(found.isEmpty() ? static_cast<QWidget *>(m_nothing) : m_list);
    m_queue->setEnabled(!found.isEmpty());
    m_goLive->setEnabled(!found.isEmpty());
}

void GoToSlideSheet::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && event->modifiers().testFlag(Qt::ControlModifier)) {
        if (!event->isAutoRepeat())
            sendLive();
    } else if (!m_list->moveBy(event->key())) {
        QDialog::keyPressEvent(event);
    }
}

void GoToSlideSheet::choose(const QModelIndex &slide)
{
    if (!slide.isValid())
        return;
    m_store.selectSlide(slide.data(FoundSlides::idRole).toString(), true);
    accept();
}

void GoToSlideSheet::sendLive()
{
    const QModelIndex slide = m_list->currentIndex();
    if (!slide.isValid())
        return;
    choose(slide);
    m_store.goLive();
}

} // namespace quenara
