#pragma once

#include "DialogParent.h"
#include "DocumentGuard.h"

namespace quenara {

/// Asks in a message box: "Save", if offered, the button that goes on, and "Cancel", which Escape
/// and closing the box are too.
class LeaveQuestionBox : public LeaveQuestionRunner
{
public:
    explicit LeaveQuestionBox(DialogParent parent);

    LeaveAnswer ask(const LeaveQuestion &question) override;

private:
    DialogParent m_parent;
};

} // namespace quenara
