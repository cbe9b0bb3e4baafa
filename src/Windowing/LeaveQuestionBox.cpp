#include "LeaveQuestionBox.h"

#include "AlertBox.h"

#include <QPushButton>

#include <utility>

namespace quenara {

LeaveQuestionBox::LeaveQuestionBox(DialogParent parent) : m_parent(std::move(parent)) {}

LeaveAnswer LeaveQuestionBox::ask(const LeaveQuestion &question)
{
    AlertBox box(question.text, question.detail, AlertBox::Cancel, m_parent());
    const auto *proceed = box.addButton(question.proceedTitle, AlertBox::DestructiveRole);
    const QPushButton *save = nullptr;
    if (question.offersSave)
        save = box.addButton(AlertBox::Save);
    box.setDefaultButton(question.offersSave ? AlertBox::Save : AlertBox::Cancel);
    box.setEscapeButton(AlertBox::Cancel);
    box.exec();
    m_parent()->activateWindow();
    if (save && box.clickedButton() == save)
        return LeaveAnswer::save;
    return box.clickedButton() == proceed ? LeaveAnswer::proceed : LeaveAnswer::cancel;
}

} // namespace quenara
