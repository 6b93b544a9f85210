#pragma once

#include <QDeadlineTimer>
#include <QString>
#include <QTimer>

namespace nubo::test {

// Answers the next modal dialog of this process while it lives: presses
// the button with the given text (or rejects the dialog when there is no
// such button). It watches for as long as it lives, so a dialog that comes
// late is still answered (and counted as late) instead of hanging the test.
class ModalAnswer {
public:
    explicit ModalAnswer(QString button, int expectWithinMs = 5000);

    // A dialog came and was answered with the wanted button.
    bool answered() const { return m_answered; }
    // A dialog came at all, in time or not.
    bool asked() const { return !m_title.isNull(); }
    bool late() const { return m_late; }
    const QString& title() const { return m_title; }
    const QString& text() const { return m_text; }

private:
    void poll();

    QString m_button;
    QDeadlineTimer m_deadline;
    QTimer m_timer;
    QString m_title;
    QString m_text;
    bool m_answered = false;
    bool m_late = false;
};

} // namespace nubo::test
