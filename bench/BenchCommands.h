#pragma once

#include "BenchStore.h"
#include "CommandActions.h"
#include "OutputWindows.h"

namespace quenara::bench {

/// Output windows that are always open.
class OpenOutputs : public OutputWindows
{
public:
    bool isDisplayWindowOpen() const override { return true; }
    bool isDisplayWaiting() const override { return false; }
    bool isStageWindowOpen() const override { return true; }
    bool isStageFullScreen() const override { return false; }
    bool canToggleStageFullScreen() const override { return true; }
    void toggleDisplayWindow() override {}
    void toggleStageWindow() override {}
    void toggleStageFullScreen() override {}
};

/// A store with its commands.
struct BenchCommands : BenchStore
{
    using BenchStore::BenchStore;

    OpenOutputs outputs;
    CommandActions commands{
        {.store = store, .outputs = outputs, .mayReplaceDocument = [] { return true; }}};
};

} // namespace quenara::bench
