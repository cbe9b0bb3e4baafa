#pragma once

#include "Command.h"

#include <QWidget>

class QBoxLayout;

namespace quenara {

class CommandActions;
struct RenderCaches;
class SymbolButton;
class TransportPreview;
class WorkspaceStore;

/// The strip across the bottom of the operator window: what is queued and live, and the buttons
/// that run the service. None is ever disabled. Where the strip has no room for all of its parts,
/// the preview of the queued slide goes, and that of the live slide becomes smaller: what the
/// audience sees is always told. Where even that is too wide, the buttons that belong together
/// stand one above the other.
class TransportView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int barHeight = 132; ///< points

    TransportView(WorkspaceStore &store, const CommandActions &commands, RenderCaches &caches,
                  QWidget *parent = nullptr);

    /// The room for the buttons, paired one above the other, and the smallest preview of the live
    /// slide.
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    /// A button that is down while its command is on.
    struct Switch
    {
        SymbolButton *button;
        Command command;
    };

    /// Buttons that stand beside each other or, where room is scarce, one above the other.
    struct Pair
    {
        QBoxLayout *layout;
        SymbolButton *first;
        SymbolButton *second;
    };

    int widthBesidePreviews() const;
    int widthSavedByStacking() const;
    void stackPairs(bool isStacked);
    void showSlides();
    void showSwitches();
    void showNotice();

    WorkspaceStore &m_store;
    const CommandActions &m_commands;
    TransportPreview *m_queued;
    TransportPreview *m_live;
    QList<Switch> m_switches;
    QBoxLayout *m_navigation;
    QList<Pair> m_pairs;
    bool m_isStacked = false;
};

} // namespace quenara
