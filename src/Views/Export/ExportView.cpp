#include "ExportView.h"

#include "AccessibleControls.h"
#include "FilePanels.h"
#include "NameInSentence.h"
#include "PdfPages.h"
#include "PictureFolder.h"
#include "PlainToolTip.h"
#include "RoleLabel.h"
#include "Show.h"
#include "ShowExport.h"
#include "Typing.h"
#include "WorkspaceStore.h"

#include <QButtonGroup>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace quenara {

namespace {

constexpr int exportViewWidth = 460;
constexpr int exportPadding = 20;
constexpr int exportSpacing = 12;
constexpr int formatHeight = 56;
constexpr int formatMargin = 12;
constexpr int formatSpacing = 4;
constexpr int exportButtonSpacing = 8;
constexpr int progressHeight = 8;
constexpr int wordsHeight = 34; ///< two lines

QPushButton *makeFormatRow(const ExportFormatDescription &description)
{
    const QString title = QString::fromUtf8(description.title);
    const QString detail = QString::fromUtf8(description.detail);
    auto *row = new QPushButton;
    row->setProperty("role", QStringLiteral("choice"));
    row->setCheckable(true);
    row->setAutoExclusive(true); // so that a screen reader calls it a radio button
    row->setAutoDefault(false);
    row->setFixedHeight(formatHeight);
    row->setToolTip(detail);
    row->setAccessibleName(title);
    row->setAccessibleDescription(detail);
    auto *layout = new QVBoxLayout(row);
    layout->setContentsMargins(formatMargin, 0, formatMargin, 0);
    layout->setSpacing(formatSpacing);
    layout->addStretch();
    layout->addWidget(makeRoleLabel(QStringLiteral("rowTitle"), title));
    layout->addWidget(makeRoleLabel(QStringLiteral("path"), detail));
    layout->addStretch();
    return row;
}

QLabel *makeWords(const QString &role)
{
    QLabel *words = makeRoleLabel(role, {});
    words->setWordWrap(true);
    words->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    words->setFixedHeight(wordsHeight);
    return words;
}

} // namespace

ExportView::ExportView(const WorkspaceStore &store, FilePanelRunner &panels, QWidget *parent)
    : QWidget(parent), m_store(store), m_panels(panels), m_choice(new QButtonGroup(this))
{
    setFixedWidth(exportViewWidth);
    setAccessibleRole(*this, QAccessible::Pane);
    setAccessibleName(QStringLiteral("Export"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(exportPadding, exportPadding, exportPadding, exportPadding);
    layout->setSpacing(exportSpacing);
    layout->addWidget(
        makeRoleLabel(QStringLiteral("sheetTitle"), QStringLiteral("Export the Show")));
    layout->addWidget(makeChoices());
    layout->addWidget(makeProgress());
    layout->addWidget(makeButtons());
    connect(&store, &WorkspaceStore::projectChanged, this, &ExportView::showState);
    beginAnew();
}

ExportView::~ExportView()
{
    delete m_export;
}

bool ExportView::isExporting() const
{
    return m_export;
}

QWidget *ExportView::makeChoices()
{
    auto *choices = new QWidget;
    auto *layout = new QVBoxLayout(choices);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(exportButtonSpacing);
    for (const ExportFormatDescription &description : exportFormats()) {
        QPushButton *row = makeFormatRow(description);
        m_choice->addButton(row, int(description.format));
        layout->addWidget(row);
    }
    m_choice->button(int(ExportFormat::onePerPage))->setChecked(true);
    return choices;
}

QWidget *ExportView::makeProgress()
{
    m_progress = new QProgressBar;
    m_progress->setAccessibleName(QStringLiteral("Progress of the export"));
    m_progress->setTextVisible(false);
    m_progress->setFixedHeight(progressHeight);
    QSizePolicy policy = m_progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // nothing moves when an export begins
    m_progress->setSizePolicy(policy);
    m_words = makeWords(QStringLiteral("note"));
    m_fault = makeWords(QStringLiteral("fault"));
    auto *progress = new QWidget;
    auto *layout = new QVBoxLayout(progress);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(exportButtonSpacing);
    layout->addWidget(m_progress);
    layout->addWidget(m_words);
    layout->addWidget(m_fault);
    return progress;
}

QWidget *ExportView::makeButtons()
{
    m_cancel = new QPushButton;
    m_cancel->setAutoDefault(false);
    m_exportButton = new QPushButton(QStringLiteral("Export..."));
    m_exportButton->setProperty("look", QStringLiteral("primary"));
    m_exportButton->setDefault(true);
    m_exportButton->setToolTip(QStringLiteral("Choose a place and export"));
    auto *buttons = new QWidget;
    auto *layout = new QHBoxLayout(buttons);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(exportButtonSpacing);
    layout->addStretch();
    layout->addWidget(m_cancel);
    layout->addWidget(m_exportButton);
    connect(m_exportButton, &QPushButton::clicked, this, &ExportView::exportShow);
    connect(m_cancel, &QPushButton::clicked, this, [this] {
        if (!isExporting())
            return emit dismissed();
        cancel();
        tell(QStringLiteral("The export was cancelled. Nothing was written."));
    });
    return buttons;
}

ExportFormat ExportView::format() const
{
    return ExportFormat(m_choice->checkedId());
}

void ExportView::exportShow()
{
    endTyping(); // in the operator's window, which need not have lost the keyboard for it
    const QList<FlattenedSlide> slides = m_store.flattenedSlides();
    if (isExporting() || slides.isEmpty())
        return;
    std::unique_ptr<SlideSink> sink = chosenSink(format(), slides.size());
    window()->activateWindow();
    // The window may have been closed while the panel was open.
    if (sink && isVisible())
        start(new ShowExport(slides, std::move(sink), this));
}

/// Null if the operator cancels.
std::unique_ptr<SlideSink> ExportView::chosenSink(ExportFormat format, qsizetype slideCount)
{
    const QString name = m_store.project().name;
    const bool isFolder = format == ExportFormat::pictures;
    const std::optional<QUrl> place =
        m_panels.run(isFolder ? exportedPicturesPanel() : exportedPagesPanel(proposedName(name)));
    if (!place)
        return nullptr;
    const QString path = place->toLocalFile();
    if (isFolder)
        return std::make_unique<PictureFolder>(path, name, slideCount);
    return std::make_unique<PdfPages>(path,
                                      PdfPages::Content{.projectName = name,
                                                        .slideCount = slideCount,
                                                        .format = format,
                                                        .paper = paperOf(QLocale())});
}

void ExportView::start(ShowExport *showExport)
{
    m_export = showExport;
    m_progress->setRange(0, int(showExport->slideCount()));
    const auto tellProgress = [this](qsizetype count) {
        m_progress->setValue(int(count));
        tell(QStringLiteral("%1 of %2 slides").arg(count).arg(m_export->slideCount()));
    };
    connect(showExport, &ShowExport::progressed, this, tellProgress);
    connect(showExport, &ShowExport::finished, this, &ExportView::finish);
    tellProgress(0);
    showState();
    showExport->start();
}

void ExportView::finish(bool isWhole)
{
    const SlideSink &sink = m_export->sink();
    const QString name = nameInSentence(QFileInfo(sink.path()).fileName());
    const qsizetype count = m_export->slideCount();
    if (isWhole) {
        tell(QStringLiteral("%1 %2 exported to \u201c%3\u201d.")
                 .arg(count)
                 .arg(count == 1 ? QStringLiteral("slide") : QStringLiteral("slides"), name));
    } else {
        tell(QStringLiteral("Quenara could not write \u201c%1\u201d: %2.").arg(name, sink.fault()),
             true);
    }
    m_export->deleteLater(); // it is the one that tells
    m_export.clear();
    showState();
}

void ExportView::cancel()
{
    delete m_export;
    showState();
}

void ExportView::beginAnew()
{
    if (!isExporting())
        tell({});
    showState();
}

void ExportView::tell(const QString &words, bool isFault)
{
    m_words->setVisible(!isFault);
    m_fault->setVisible(isFault);
    (isFault ? m_fault : m_words)->setText(words);
}

void ExportView::showState()
{
    const bool hasSlides = slideCount(m_store.project()) > 0;
    for (QAbstractButton *row : m_choice->buttons())
        row->setEnabled(!isExporting());
    m_progress->setVisible(isExporting());
    m_exportButton->setEnabled(!isExporting() && hasSlides);
    m_cancel->setText(isExporting() ? QStringLiteral("Cancel") : QStringLiteral("Close"));
    m_cancel->setToolTip(buttonToolTip(m_cancel->text(), Qt::Key_Escape));
}

} // namespace quenara
