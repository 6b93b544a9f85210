#include "support/ModalAnswer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>

namespace nubo::test {

ModalAnswer::ModalAnswer(QString button, int expectWithinMs)
    : m_button(std::move(button)), m_deadline(expectWithinMs)
{
    m_timer.setInterval(20);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { poll(); });
    m_timer.start();
}

ModalAnswer::ModalAnswer(std::function<void(QDialog&)> answer, int expectWithinMs)
    : ModalAnswer(QString(), expectWithinMs)
{
    m_answer = std::move(answer);
}

void ModalAnswer::poll()
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog) {
        return;
    }
    if (asked()) {
        // Answered, and still open a while later: the answer did not take.
        if (m_leftOpen.hasExpired()) {
            dialog->reject();
        }
        return;
    }
    // A dialog settles after it shows (a file dialog loads its folder and
    // selects the proposed name): answered as a person would, a moment later.
    if (m_seen.isForever()) {
        m_seen.setRemainingTime(250);
    }
    if (!m_seen.hasExpired()) {
        return;
    }
    m_late = m_deadline.hasExpired();
    m_title = dialog->windowTitle();
    if (const auto* box = qobject_cast<QMessageBox*>(dialog)) {
        m_text = box->text();
    }
    m_leftOpen.setRemainingTime(3000);
    if (m_late) {
        dialog->reject();
        return;
    }
    if (m_answer) {
        m_answered = true;
        m_answer(*dialog);
        return;
    }
    for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == m_button) {
            m_answered = true;
            button->click();
            return;
        }
    }
    dialog->reject();
}

} // namespace nubo::test
