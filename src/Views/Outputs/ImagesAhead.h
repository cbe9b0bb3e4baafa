#pragma once

#include "ProjectModels.h"

#include <QList>
#include <QObject>
#include <QSize>
#include <QTimer>

namespace quenara {

struct RenderCaches;

/// Has the images of slides ready before they are shown: one after the other, each when the program
/// has handled all events and has nothing else to do.
class ImagesAhead : public QObject
{
    Q_OBJECT

public:
    explicit ImagesAhead(RenderCaches &caches, QObject *parent = nullptr);

    /// From now on those of \a slides, the first first, as an area of \a size points shows them at
    /// so many pixels a point. What is ready already stays so.
    void prepare(const QList<Slide> &slides, const QSize &size, double devicePixelRatio);

private:
    void goOn();
    void prepareOne();

    RenderCaches &m_caches;
    QSize m_size;
    double m_devicePixelRatio = 1;
    QList<Slide> m_left; ///< with one image each
    QTimer m_idle; ///< runs out when there is no event left
};

} // namespace quenara
