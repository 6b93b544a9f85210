#pragma once

#include <QWidget>

class QLabel;

namespace nubo {

class ShotCanvas;

// The editor's zoom: out, the zoom in percent, in, and fit in the window.
class ShotZoomControls : public QWidget {
    Q_OBJECT
public:
    explicit ShotZoomControls(ShotCanvas& canvas, QWidget* parent = nullptr);

private:
    void update();

    ShotCanvas& m_canvas;
    QLabel* m_zoom = nullptr;
};

} // namespace nubo
