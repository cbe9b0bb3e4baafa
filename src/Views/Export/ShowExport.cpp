#include "ShowExport.h"

#include <utility>

namespace quenara {

ShowExport::ShowExport(const QList<FlattenedSlide> &slides, std::unique_ptr<SlideSink> sink,
                       QObject *parent)
    : QObject(parent), m_slides(slides), m_sink(std::move(sink))
{
    m_idle.setSingleShot(true);
    m_idle.setInterval(0);
    connect(&m_idle, &QTimer::timeout, this, [this] { (this->*m_next)(); });
}

void ShowExport::start()
{
    goOn(&ShowExport::open);
}

void ShowExport::goOn(Step next)
{
    m_next = next;
    // A timer that is started while it runs out may run out again before any event.
    QMetaObject::invokeMethod(&m_idle, qOverload<>(&QTimer::start), Qt::QueuedConnection);
}

void ShowExport::open()
{
    if (!m_sink->open())
        return fail();
    goOn(&ShowExport::paintOne);
}

void ShowExport::paintOne()
{
    m_sink->paint(m_slides.at(m_written), m_caches);
    goOn(&ShowExport::writeOne);
}

void ShowExport::writeOne()
{
    if (!m_sink->write())
        return fail();
    if (m_sink->hasMore())
        return goOn(&ShowExport::writeOne);
    ++m_written;
    emit progressed(m_written);
    goOn(m_written < m_slides.size() ? &ShowExport::paintOne : &ShowExport::finish);
}

void ShowExport::finish()
{
    if (!m_sink->finish())
        return fail();
    emit finished(true);
}

void ShowExport::fail()
{
    emit finished(false);
}

} // namespace quenara
