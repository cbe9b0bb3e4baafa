#pragma once

#include "CommandActions.h"
#include "OutputWindows.h"
#include "TestSupport.h"

namespace quenara::test {

/// Output windows that know no more than whether they are open or wait.
class FakeOutputWindows : public OutputWindows
{
public:
    /// The display, if it is open, has lost its screen.
    void loseDisplay()
    {
        m_isDisplayWindowOpen = false;
        m_isDisplayWaiting = true;
        emit changed();
    }

    bool isDisplayWindowOpen() const override { return m_isDisplayWindowOpen; }
    bool isDisplayWaiting() const override { return m_isDisplayWaiting; }
    bool isStageWindowOpen() const override { return m_isStageWindowOpen; }
    bool isStageFullScreen() const override { return m_isStageFullScreen; }
    bool canToggleStageFullScreen() const override { return m_isStageWindowOpen; }

    void toggleDisplayWindow() override
    {
        m_isDisplayWaiting = false;
        m_isDisplayWindowOpen = !m_isDisplayWindowOpen;
        emit changed();
    }

    void toggleStageWindow() override
    {
        m_isStageWindowOpen = !m_isStageWindowOpen;
        emit changed();
    }

    void toggleStageFullScreen() override
    {
        m_isStageFullScreen = !m_isStageFullScreen;
        emit changed();
    }

private:
    bool m_isDisplayWindowOpen = false;
    bool m_isDisplayWaiting = false;
    bool m_isStageWindowOpen = false;
    bool m_isStageFullScreen = false;
};

/// A world with commands around its store.
struct CommandWorld : World
{
    using World::World;

    FakeOutputWindows outputs;
    bool mayReplaceDocument = true; ///< the operator's answer
    int consentCount = 0; ///< how often the operator was asked for it
    CommandActions commands{{.store = store, .outputs = outputs, .mayReplaceDocument = [this] {
                                 ++consentCount;
                                 return mayReplaceDocument;
                             }}};
};

} // namespace quenara::test
