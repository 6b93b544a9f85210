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

void ModalAnswer::poll()
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || asked()) {
        return;
    }
    m_late = m_deadline.hasExpired();
    m_title = dialog->windowTitle();
    if (const auto* box = qobject_cast<QMessageBox*>(dialog)) {
        m_text = box->text();
    }
    if (!m_late) {
        for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
            if (button->text().remove(QLatin1Char('&')) == m_button) {
                m_answered = true;
                button->click();
                return;
            }
        }
    }
    dialog->reject();
}

} // namespace nubo::test
