#include "DisplayOutputView.h"
#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "OperatorWorld.h"
#include "ProjectTemplates.h"
#include "StageOutputView.h"

#include <QLibraryInfo>
#include <QPainter>
#include <QSemaphore>
#include <QThreadPool>
#include <QVersionNumber>

#include <thread>

using namespace quenara;
using namespace quenara::test;

namespace tst_unaided_painting {

namespace {

/// All threads that Qt may fill pixels with, at work on something else.
class BusyThreads
{
public:
    /// Sets them free when nothing is painted after \a patience milliseconds.
    explicit BusyThreads(int patience)
    {
        for (int i = 0; i < m_count; ++i) {
            m_pool.start([this] {
                m_begun.release();
                m_mayEnd.acquire();
            });
        }
        m_begun.acquire(m_count);
        m_rescue = std::thread([this, patience] {
            if (!m_isPainted.tryAcquire(1, patience))
                m_mayEnd.release(m_count);
        });
    }

    /// Whether they had to be set free for the painting to go on.
    bool wereWaitedFor()
    {
        m_isPainted.release();
        m_rescue.join();
        const bool wereFreed = m_isPainted.available() > 0;
        if (!wereFreed)
            m_mayEnd.release(m_count);
        m_pool.waitForDone();
        return wereFreed;
    }

private:
    QThreadPool &m_pool = *QThreadPool::globalInstance();
    const int m_count = m_pool.maxThreadCount();
    QSemaphore m_begun;
    QSemaphore m_mayEnd;
    QSemaphore m_isPainted;
    std::thread m_rescue;
};

ZelvoProject showOfAllTemplates()
{
    ZelvoProject project = showOf({0});
    QList<Slide> &slides = project.serviceItems.first().slides;
    for (const SlideTemplate &design : ProjectTemplates::templates()) {
        slides.append(ProjectTemplates::slide(
            QStringLiteral("Verse"),
            QStringLiteral("Great is the morning\nBright with mercy\nGreat is the evening"),
            int(slides.size()), design.id));
    }
    return project;
}

} // namespace

class TestUnaidedPainting : public GuiTest
{
    Q_OBJECT

private slots:
    /// Where Qt does not wait, the other test says nothing. Once no release does that the program
    /// is built with, paintInBands() can go.
    void olderReleasesOfQtWaitForTheirThreads()
    {
        QImage image(1000, 1000, QImage::Format_RGB32);
        BusyThreads threads(200);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(255, 0, 0, 128));
        painter.drawEllipse(image.rect());
        painter.end();
        QCOMPARE(threads.wereWaitedFor(), QLibraryInfo::version() < QVersionNumber(6, 8));
    }

    void noStepOfTheShowWaitsForTheThreadsOfQt()
    {
        qApp->setStyleSheet(interfaceStyleSheet(ZelvoTheme::dark()));
        OperatorWorld operatorWorld(showOfAllTemplates());
        WorkspaceStore &store = operatorWorld.store;
        DisplayOutputView display(store, operatorWorld.caches);
        StageOutputView stage(store, operatorWorld.caches);
        display.resize(1920, 1080);
        stage.resize(1180, 720);
        operatorWorld.view.resize(1480, 900);
        display.show();
        stage.show();
        QApplication::processEvents();

        BusyThreads threads(20'000); // nothing is painted that long
        for (qsizetype i = 0; i < ProjectTemplates::templates().size(); ++i) {
            store.nextLive();
            QApplication::processEvents();
        }
        QVERIFY(!threads.wereWaitedFor());
    }
};

QUENARA_GUI_TEST(TestUnaidedPainting)

} // namespace tst_unaided_painting

#include "tst_unaided_painting.moc"
