#pragma once

#include "DialogInFront.h"
#include "DocumentGuard.h"

namespace quenara {

/// Asks in a message box: "Save", if offered, the button that goes on, and "Cancel", which Escape
/// and closing the box are too.
class LeaveQuestionBox : public LeaveQuestionRunner
{
public:
    explicit LeaveQuestionBox(DialogOwner owner);

    LeaveAnswer ask(const LeaveQuestion &question) override;

private:
    DialogOwner m_owner;
};

} // namespace quenara
