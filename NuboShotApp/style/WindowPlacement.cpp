#include "style/WindowPlacement.h"

#include "core/Settings.h"

#include <QCursor>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <optional>

namespace nubo::WindowPlacement {

namespace {

// Room kept for the window manager's title bar and borders, which Qt's
// geometry leaves out.
constexpr int frameTop = 32;
constexpr int frameSide = 4;

QString keyOf(const QString& name)
{
    return QStringLiteral("windows/") + name;
}

std::optional<QRect> remembered(const QString& name)
{
    const std::optional<QString> text = ShotPreferences().string(keyOf(name));
    const QStringList parts = text ? text->split(u',') : QStringList();
    if (parts.size() != 4) {
        return std::nullopt;
    }
    int values[4] = {};
    for (int i = 0; i < 4; ++i) {
        bool ok = false;
        values[i] = parts[i].toInt(&ok);
        if (!ok) {
            return std::nullopt;
        }
    }
    return QRect(values[0], values[1], values[2], values[3]);
}

// The frame a window of `size` gets: its size with the decorations.
QSize framed(QSize size)
{
    return size + QSize(2 * frameSide, frameTop + frameSide);
}

} // namespace

void place(QWidget& window, const QString& name, QSize preferred)
{
    // Remembered as the frame's place (what move() sets) and the inside's size.
    if (const std::optional<QRect> last = remembered(name)) {
        for (const QScreen* screen : QGuiApplication::screens()) {
            if (screen->availableGeometry().contains(QRect(last->topLeft(), framed(last->size())))) {
                window.resize(last->size().expandedTo(window.minimumSize()));
                window.move(last->topLeft());
                return;
            }
        }
    }
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen) {
        screen = QGuiApplication::primaryScreen();
    }
    if (!screen) {
        window.resize(preferred);
        return;
    }
    const QRect area = screen->availableGeometry();
    const QSize size = preferred.boundedTo(area.size() - (framed(QSize()))).expandedTo(window.minimumSize());
    window.resize(size);
    const QSize frame = framed(size);
    window.move(area.x() + std::max(0, (area.width() - frame.width()) / 2),
                area.y() + std::max(0, (area.height() - frame.height()) / 2));
}

void remember(const QWidget& window, const QString& name)
{
    if (window.isMaximized() || window.isFullScreen()) {
        return;
    }
    const QPoint at = window.pos();
    const QSize size = window.size();
    ShotPreferences preferences;
    preferences.setValue(keyOf(name), QStringLiteral("%1,%2,%3,%4")
                                          .arg(at.x())
                                          .arg(at.y())
                                          .arg(size.width())
                                          .arg(size.height()));
    preferences.sync();
}

} // namespace nubo::WindowPlacement
