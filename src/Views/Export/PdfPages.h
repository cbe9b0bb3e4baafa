#pragma once

#include "ExportFormat.h"
#include "HandoutLayout.h"
#include "SlideSink.h"

#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace quenara {

/// A document of pages, in which letters stay letters: they can be found and are sharp at every
/// size. What is blurred or faded as a whole is as fine as the wall shows it.
class PdfPages : public SlideSink
{
public:
    struct Content
    {
        QString projectName;
        qsizetype slideCount = 0;
        ExportFormat format = ExportFormat::onePerPage; ///< one with pages
        QPageSize paper; ///< of pages with several slides
    };

    /// A file at \a path is replaced when all is written.
    PdfPages(const QString &path, const Content &content);
    ~PdfPages() override;

    bool open() override;
    void paint(const FlattenedSlide &slide, RenderCaches &caches) override;
    bool write() override;
    bool finish() override;
    QString fault() const override { return m_file.errorString(); }
    QString path() const override { return m_file.fileName(); }

private:
    void nextPage();
    void paintWholePage(const FlattenedSlide &slide, RenderCaches &caches);
    void paintCell(const FlattenedSlide &slide, RenderCaches &caches);
    void paintFooter(RenderCaches &caches);

    Content m_content;
    HandoutLayout m_layout; ///< without cells where each slide has a page
    qsizetype m_painted = 0; ///< slides
    QSaveFile m_file;
    QPdfWriter m_writer{&m_file};
    QPainter m_painter;
};

} // namespace quenara
