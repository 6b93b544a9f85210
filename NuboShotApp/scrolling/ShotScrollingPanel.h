#pragma once

#include <QImage>
#include <QWidget>

class QLabel;
class QPushButton;

namespace nubo {

// The small window beside a scrolling capture: a live preview of what is
// stitched, its height, what the user should do now, and Done, Cancel and
// Auto-scroll. It never takes the keyboard from the window being scrolled.
class ShotScrollingPanel : public QWidget {
    Q_OBJECT
public:
    static constexpr int previewWidth = 180; // points
    static constexpr int previewHeight = 240;

    // `autoScrollProblem` empty when auto-scroll can run here; otherwise
    // why not, and the button is disabled.
    explicit ShotScrollingPanel(const QString& autoScrollProblem, QWidget* parent = nullptr);

    void setPreview(const QImage& preview);
    void setHeight(qint64 rows);
    // The line that tells the user what to do; `warning` draws it in red.
    void setStatus(const QString& text, bool warning = false);
    void setAutoScrolling(bool running);

    QLabel* status() const { return m_status; }
    QLabel* height() const { return m_height; }
    QPushButton* autoScrollButton() const { return m_auto; }
    QPushButton* doneButton() const { return m_done; }
    QPushButton* cancelButton() const { return m_cancel; }

signals:
    void done();
    void cancelled();
    void autoScrollToggled(bool start);

private:
    QLabel* m_preview;
    QLabel* m_height;
    QLabel* m_status;
    QPushButton* m_auto;
    QPushButton* m_done;
    QPushButton* m_cancel;
    bool m_autoRunning = false;
};

} // namespace nubo
