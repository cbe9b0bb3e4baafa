#include "LeaveQuestionBox.h"

#include "AlertBox.h"

#include <QPushButton>

#include <utility>

namespace quenara {

LeaveQuestionBox::LeaveQuestionBox(DialogOwner owner) : m_owner(std::move(owner)) {}

LeaveAnswer LeaveQuestionBox::ask(const LeaveQuestion &question)
{
    AlertBox box(question.text, question.detail, AlertBox::Cancel, m_owner());
    const auto *proceed = box.addButton(question.proceedTitle, AlertBox::DestructiveRole);
    const QPushButton *save = nullptr;
    if (question.offersSave)
        save = box.addButton(AlertBox::Save);
    box.setDefaultButton(question.offersSave ? AlertBox::Save : AlertBox::Cancel);
    box.setEscapeButton(AlertBox::Cancel);
    runInFront(box);
    if (save && box.clickedButton() == save)
        return LeaveAnswer::save;
    return box.clickedButton() == proceed ? LeaveAnswer::proceed : LeaveAnswer::cancel;
}

} // namespace quenara
