#pragma once

#include "ProjectModels.h"
#include "RenderCaches.h"
#include "SlideSink.h"

#include <QList>
#include <QObject>
#include <QTimer>

#include <memory>

namespace quenara {

/// Exports slides while the program goes on: between two events it paints or writes one slide, with
/// caches of its own, so that those of the show keep what they hold. Destroyed before its end, it
/// leaves nothing behind.
class ShowExport : public QObject
{
    Q_OBJECT

public:
    /// At least one slide.
    ShowExport(const QList<FlattenedSlide> &slides, std::unique_ptr<SlideSink> sink,
               QObject *parent = nullptr);

    void start();

    qsizetype slideCount() const { return m_slides.size(); }
    const SlideSink &sink() const { return *m_sink; }

signals:
    /// So many slides are written.
    void progressed(qsizetype count);
    /// The sink is finished, or has failed. Nothing is emitted after that.
    void finished(bool isWhole);

private:
    using Step = void (ShowExport::*)();

    void goOn(Step next);
    void open();
    void paintOne();
    void writeOne();
    void finish();
    void fail();

    QList<FlattenedSlide> m_slides;
    qsizetype m_written = 0;
    RenderCaches m_caches;
    std::unique_ptr<SlideSink> m_sink; ///< gone before the caches
    QTimer m_idle; ///< runs out when there is no event left
    Step m_next = nullptr;
};

} // namespace quenara
