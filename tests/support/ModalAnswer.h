#pragma once

#include <QDeadlineTimer>
#include <QString>
#include <QTimer>

#include <functional>

class QDialog;

namespace nubo::test {

// Answers the next modal dialog of this process while it lives: presses
// the button with the given text (or rejects the dialog when there is no
// such button), or hands the dialog to a function that fills it in and
// accepts it. It watches for as long as it lives, so a dialog that comes
// late is still closed (and counted as late) and one left open after its
// answer is rejected, instead of hanging the test.
class ModalAnswer {
public:
    explicit ModalAnswer(QString button, int expectWithinMs = 5000);
    explicit ModalAnswer(std::function<void(QDialog&)> answer, int expectWithinMs = 5000);

    // A dialog came in time and was answered.
    bool answered() const { return m_answered; }
    // A dialog came at all, in time or not.
    bool asked() const { return !m_title.isNull(); }
    bool late() const { return m_late; }
    const QString& title() const { return m_title; }
    const QString& text() const { return m_text; }

private:
    void poll();

    QString m_button;
    std::function<void(QDialog&)> m_answer;
    QDeadlineTimer m_deadline;
    QDeadlineTimer m_leftOpen{QDeadlineTimer::Forever};
    QDeadlineTimer m_seen{QDeadlineTimer::Forever};
    QTimer m_timer;
    QString m_title;
    QString m_text;
    bool m_answered = false;
    bool m_late = false;
};

} // namespace nubo::test
