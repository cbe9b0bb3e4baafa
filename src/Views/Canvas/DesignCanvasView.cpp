#include "DesignCanvasView.h"

#include "CommandActions.h"
#include "CommandButton.h"
#include "ElidedLabel.h"
#include "Panels.h"
#include "RoleLabel.h"
#include "SlideCanvas.h"
#include "SymbolLabel.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quenara {

namespace {

// Points
constexpr int headerHeight = 52;
constexpr int headerMargin = 12;
constexpr int buttonSpacing = 8;
constexpr int narrowMargin = 8;
constexpr int narrowSpacing = 6;
constexpr int usualTitleWidth = 120;
constexpr int leastTitleWidth = 24;
constexpr int lineSpacing = 2;
constexpr int emptySpacing = 6;
constexpr int emptySymbolSize = 28;

/// The same text whatever size the design has. Where room is scarce, it gives way to the buttons:
/// it is seen whole or not at all.
class CanvasSizeLabel : public QLabel
{
public:
    CanvasSizeLabel() : QLabel(QStringLiteral("1920 x 1080  |  16:9 canvas"))
    {
        setProperty("role", QStringLiteral("canvasSize"));
        setMinimumWidth(1);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        if (sizeHint().width() <= width())
            QLabel::paintEvent(event);
    }
};

/// Titles on the left, buttons on the right. Where the buttons leave no room for the size, the
/// title stands alone in the middle of the height, as the buttons do; where they leave little for
/// the title, they are narrower and stand closer together; where they leave none, they stand alone.
class CanvasHeader : public QWidget
{
public:
    explicit CanvasHeader(QWidget *title) : m_title(title)
    {
        setPanelName(*this, QStringLiteral("canvasHeader"));
        setFixedHeight(headerHeight);
        auto *titles = new QVBoxLayout;
        titles->setSpacing(lineSpacing);
        titles->addStretch();
        titles->addWidget(title);
        titles->addWidget(m_size);
        titles->addStretch();
        m_row->addLayout(titles, 1);
    }

    void addButton(QWidget *button) { m_row->addWidget(button); }

    QSize minimumSizeHint() const override
    {
        int width = 2 * narrowMargin - narrowSpacing;
        for (int i = 1; i < m_row->count(); ++i)
            width += m_row->itemAt(i)->minimumSize().width() + narrowSpacing;
        return {width, headerHeight};
    }

protected:
    void resizeEvent(QResizeEvent * /*event*/) override
    {
        int room = width() - 2 * headerMargin;
        for (int i = 1; i < m_row->count(); ++i)
            room -= m_row->itemAt(i)->sizeHint().width() + buttonSpacing;
        m_size->setVisible(m_size->sizeHint().width() <= room);
        const bool isNarrow = room < usualTitleWidth;
        const int narrowRoom = width() - minimumSizeHint().width() - narrowSpacing;
        m_title->setVisible(!isNarrow || narrowRoom >= leastTitleWidth);
        m_title->setMinimumWidth(isNarrow ? std::max(0, narrowRoom) : 0);
        const int edge = isNarrow ? narrowMargin : headerMargin;
        m_row->setContentsMargins(edge, 0, edge, 0);
        m_row->setSpacing(isNarrow ? narrowSpacing : buttonSpacing);
        m_row->activate();
    }

private:
    QHBoxLayout *m_row = new QHBoxLayout(this);
    QWidget *m_title;
    CanvasSizeLabel *m_size = new CanvasSizeLabel;
};

} // namespace

DesignCanvasView::DesignCanvasView(WorkspaceStore &store, const CommandActions &commands,
                                   RenderCaches &caches, QWidget *parent)
    : QWidget(parent), m_store(store), m_area(new QStackedWidget),
      m_canvas(new SlideCanvas(store, caches))
{
    m_area->addWidget(makeEmptyState());
    m_area->addWidget(m_canvas);
    m_area->setMinimumHeight(1); // on the smallest screens, it is the buttons that need the room
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader(commands));
    layout->addWidget(m_area, 1);
    connect(&store, &WorkspaceStore::changed, this, &DesignCanvasView::showStore);
    showStore();
}

QWidget *DesignCanvasView::makeHeader(const CommandActions &commands)
{
    m_title = new ElidedLabel(QStringLiteral("canvasTitle"));
    auto *header = new CanvasHeader(m_title);
    for (const Command command :
         {Command::addTextLayer, Command::addLyricLayer, Command::addImageLayer}) {
        header->addButton(
            new CommandButton(*commands.action(command), SymbolButton::Look::labelled));
    }
    return header;
}

QWidget *DesignCanvasView::makeEmptyState()
{
    QWidget *area = makePanel(QStringLiteral("emptyCanvas"));
    auto *layout = new QVBoxLayout(area);
    layout->setSpacing(emptySpacing);
    layout->addStretch();
    layout->addWidget(new SymbolLabel(QStringLiteral("rectangle.on.rectangle.slash"),
                                      emptySymbolSize, &ZelvoTheme::secondaryText),
                      0, Qt::AlignHCenter);
    for (QWidget *row :
         {makeRoleLabel(QStringLiteral("emptyTitle"), QStringLiteral("Blank project")),
          makeRoleLabel(QStringLiteral("hint"),
                        QStringLiteral("Add a slide from the rundown to begin."))}) {
        row->setMinimumWidth(1); // where room is scarce, it is the buttons that need it
        layout->addWidget(row, 0, Qt::AlignHCenter);
    }
    layout->addStretch();
    return area;
}

void DesignCanvasView::showStore()
{
    const std::optional<Slide> slide = m_store.slideWithID(m_store.selectedSlideID());
    m_title->setText(slide ? slide->title : QStringLiteral("No Slide"));
    m_area->setCurrentIndex(slide ? 1 : 0);
}

} // namespace quenara
