#pragma once

#include "ExportFormat.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class QButtonGroup;
class QLabel;
class QProgressBar;
class QPushButton;

namespace quenara {

class FilePanelRunner;
class ShowExport;
class SlideSink;
class WorkspaceStore;

/// The content of the export window: the choice of a format, the progress of the export, and what
/// has become of it. It exports the show as it is when the file is asked for, whatever is changed
/// meanwhile.
class ExportView : public QWidget
{
    Q_OBJECT

public:
    ExportView(const WorkspaceStore &store, FilePanelRunner &panels, QWidget *parent = nullptr);
    ~ExportView() override;

    bool isExporting() const;

    /// Ends the export that is under way, if one is: nothing is left of it.
    void cancel();

    /// Forgets what has become of the last export.
    void beginAnew();

signals:
    /// The operator has done with the window.
    void dismissed();

private:
    QWidget *makeChoices();
    QWidget *makeProgress();
    QWidget *makeButtons();
    ExportFormat format() const;
    void exportShow();
    std::unique_ptr<SlideSink> chosenSink(ExportFormat format, qsizetype slideCount);
    void start(ShowExport *showExport);
    void finish(bool isWhole);
    void tell(const QString &words, bool isFault = false);
    void showState();

    const WorkspaceStore &m_store;
    FilePanelRunner &m_panels;
    QPointer<ShowExport> m_export; ///< null while nothing is exported
    QButtonGroup *m_choice;
    QProgressBar *m_progress = nullptr;
    QLabel *m_words = nullptr;
    QLabel *m_fault = nullptr;
    QPushButton *m_cancel = nullptr;
    QPushButton *m_exportButton = nullptr;
};

} // namespace quenara
