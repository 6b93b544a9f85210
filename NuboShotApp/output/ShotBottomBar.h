#pragma once

#include <QLabel>
#include <QWidget>

#include <functional>

class QPushButton;
class QToolButton;

namespace nubo {

class ShotCanvas;

// The handle a shot is dragged out by.
class ShotDragHandle : public QLabel {
    Q_OBJECT
public:
    explicit ShotDragHandle(QWidget* parent = nullptr);

signals:
    // The pointer left the press distance with the button down.
    void dragStarted();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    QPoint m_pressed;
    bool m_armed = false;
};

// The editor's bottom bar: the ways a shot leaves the editor, the pin that
// keeps the editor open, and the zoom.
class ShotBottomBar : public QWidget {
    Q_OBJECT
public:
    ShotBottomBar(ShotCanvas& canvas, QWidget* parent = nullptr);

    QPushButton* copyButton() const { return m_copy; }
    QPushButton* saveButton() const { return m_save; }
    QPushButton* saveAsButton() const { return m_saveAs; }
    QPushButton* shareButton() const { return m_share; }
    QToolButton* pinButton() const { return m_pin; }
    ShotDragHandle* dragHandle() const { return m_drag; }
    bool isPinned() const;
    void setShareAvailable(bool available);

signals:
    void copyRequested();
    void quickSaveRequested();
    void saveAsRequested();
    void dragRequested();
    void shareRequested();

private:
    void updateZoom();

    ShotCanvas& m_canvas;
    QPushButton* m_copy = nullptr;
    QPushButton* m_save = nullptr;
    QPushButton* m_saveAs = nullptr;
    QPushButton* m_share = nullptr;
    QToolButton* m_pin = nullptr;
    ShotDragHandle* m_drag = nullptr;
    QLabel* m_zoom = nullptr;
};

} // namespace nubo
