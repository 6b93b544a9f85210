#pragma once

#include "recording/CameraOverlay.h"

#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace nubo {

class ShotPreferences;
class ShotCameraFeed;

// The camera's round preview on screen, where its bubble will be in the
// movie: always on top, dragged to move, resized with the wheel or its
// corner grip. It never shows in what the recorder captures (the recorder
// paints our own windows away); the movie gets the bubble from the
// compositor at the same place.
class ShotCameraPreview : public QWidget {
    Q_OBJECT
public:
    explicit ShotCameraPreview(std::shared_ptr<ShotCameraFeed> feed);

    // Where it may go: the recorded target (global points).
    void setBounds(const QRectF& bounds) { m_bounds = bounds; }
    // Moves and sizes it (a square, kept mostly within the bounds).
    void place(const QRect& frame);
    // What it shows while the camera is not there yet, or gone.
    void setMessage(const QString& message);
    bool showsPicture() const { return !m_picture.isNull(); }

    static constexpr int smallest = 64;

signals:
    // Moved or resized by the user: on release, the end of a wheel turn.
    void placed(const QRect& frame);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QPointF gripCentre() const;
    bool onGrip(QPointF at) const;
    void refresh();

    std::shared_ptr<ShotCameraFeed> m_feed;
    QRectF m_bounds;
    QTimer m_poll;
    QImage m_picture;
    quint64 m_sequence = 0;
    QString m_message;
    enum class Drag { none, move, resize } m_drag = Drag::none;
    QPoint m_pressedAt;
    QRect m_pressedFrame;
    QTimer m_wheelEnd;
};

// The camera bubble of the recording flow: the chosen camera opened in the
// background, its preview over the target, and the bubble's place, stored
// in "shot.recording.camera.frame" (in 0…1 of the target) when the user
// moves it and read by the recorder at every frame. Main thread.
class ShotCameraBubble : public QObject {
    Q_OBJECT
public:
    explicit ShotCameraBubble(ShotPreferences& preferences, QObject* parent = nullptr);
    ~ShotCameraBubble() override;

    // Opens the chosen camera (if not yet) and shows its preview at the
    // bubble's place over `target` (global points).
    void show(const QRectF& target);
    // Closes the preview and the camera.
    void hide();
    bool isShown() const { return m_preview != nullptr; }
    // The recorder's view of it: pictures as they come, the place as it is
    // now. Nothing when not shown.
    std::optional<CameraOverlay> overlay() const;
    ShotCameraPreview* preview() const { return m_preview; }

private:
    void setFrame(const QRect& preview);

    ShotPreferences& m_preferences;
    std::shared_ptr<ShotCameraFeed> m_feed;
    std::shared_ptr<CameraBubblePlace> m_place;
    QPointer<ShotCameraPreview> m_preview;
    QRectF m_target;
};

} // namespace nubo
