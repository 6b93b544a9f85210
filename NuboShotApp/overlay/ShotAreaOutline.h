#pragma once

#include <QColor>
#include <QList>
#include <QPointer>
#include <QRectF>
#include <QWidget>

namespace nubo {

// A thin frame drawn just outside an area of the screen, made of four strips
// (plain windows: no compositor needed). Never focused, never in the way of
// a click; as our own windows, never in a capture or a recording.
class ShotAreaOutline {
public:
    ShotAreaOutline() = default;
    ~ShotAreaOutline() { hide(); }
    ShotAreaOutline(const ShotAreaOutline&) = delete;
    ShotAreaOutline& operator=(const ShotAreaOutline&) = delete;

    // `width` points wide, one point clear of the area (global points).
    void show(const QRectF& area, double width, const QColor& colour, const QString& title);
    void hide();
    QList<QWidget*> strips() const;

private:
    QList<QPointer<QWidget>> m_strips;
};

} // namespace nubo
