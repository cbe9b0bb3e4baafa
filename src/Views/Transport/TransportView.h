#pragma once

#include <QWidget>

namespace quenara {

class OutputSwitches;
class PictureCache;
class SymbolButton;
class TransportPreview;
class WorkspaceStore;

/// The strip across the bottom of the operator window: what is queued and live, and the buttons
/// that run the service. None is ever disabled.
class TransportView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int barHeight = 132; ///< points

    TransportView(WorkspaceStore &store, OutputSwitches &outputs, PictureCache &pictures,
                  QWidget *parent = nullptr);

private:
    void showState();

    WorkspaceStore &m_store;
    OutputSwitches &m_outputs;
    TransportPreview *m_queued;
    TransportPreview *m_live;
    SymbolButton *m_blackout = nullptr;
    SymbolButton *m_logo = nullptr;
    SymbolButton *m_display = nullptr;
    SymbolButton *m_stage = nullptr;
};

} // namespace quenara
