#include "LeaveQuestionBox.h"

#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace quenara {

LeaveQuestionBox::LeaveQuestionBox(DialogParent parent) : m_parent(std::move(parent)) {}

LeaveAnswer LeaveQuestionBox::ask(const LeaveQuestion &question)
{
    QMessageBox box(QMessageBox::Question, QStringLiteral("Quenara"), question.text,
                    QMessageBox::Cancel, m_parent());
    box.setInformativeText(question.detail);
    // The audience window keeps its keys.
    box.setWindowModality(Qt::WindowModal);
    const auto *proceed = box.addButton(question.proceedTitle, QMessageBox::DestructiveRole);
    const QPushButton *save = nullptr;
    if (question.offersSave)
        save = box.addButton(QMessageBox::Save);
    box.setDefaultButton(question.offersSave ? QMessageBox::Save : QMessageBox::Cancel);
    box.setEscapeButton(QMessageBox::Cancel);
    box.exec();
    if (save && box.clickedButton() == save)
        return LeaveAnswer::save;
    return box.clickedButton() == proceed ? LeaveAnswer::proceed : LeaveAnswer::cancel;
}

} // namespace quenara
