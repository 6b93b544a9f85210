#pragma once

#include <QWidget>

class QToolButton;

namespace nubo {

class ShotCanvasView;

// The editor's zoom: out, the zoom in percent (a click gives 100 %), in, and
// fit in the window.
class ShotZoomControls : public QWidget {
    Q_OBJECT
public:
    explicit ShotZoomControls(ShotCanvasView& view, QWidget* parent = nullptr);

    QToolButton* percentButton() const { return m_zoom; }

private:
    void update();

    ShotCanvasView& m_view;
    QToolButton* m_zoom = nullptr;
    QToolButton* m_fit = nullptr;
};

} // namespace nubo
