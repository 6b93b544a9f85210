#include "shell/DesktopScreens.h"

#include "capture/CapturePlatformLoader.h"

#include <QGuiApplication>
#include <QScreen>

#include <mutex>

namespace nubo {

namespace {

struct ScreenCopy {
    std::mutex lock;
    QList<DesktopScreen> screens;

    void refresh()
    {
        QList<DesktopScreen> now;
        const QScreen* primary = QGuiApplication::primaryScreen();
        for (const QScreen* screen : QGuiApplication::screens()) {
            const DesktopScreen entry{screen->name(), screen->geometry(), screen->devicePixelRatio()};
            if (screen == primary) {
                now.prepend(entry);
            } else {
                now.append(entry);
            }
        }
        const std::lock_guard guard(lock);
        screens = now;
    }
};

ScreenCopy& screenCopy()
{
    static ScreenCopy* copy = [] {
        auto* c = new ScreenCopy;
        auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
        if (!app) {
            return c;
        }
        const auto watch = [c](QScreen* screen) {
            QObject::connect(screen, &QScreen::geometryChanged, screen, [c] { c->refresh(); });
            QObject::connect(screen, &QScreen::physicalDotsPerInchChanged, screen, [c] { c->refresh(); });
        };
        for (QScreen* screen : QGuiApplication::screens()) {
            watch(screen);
        }
        QObject::connect(app, &QGuiApplication::screenAdded, app, [c, watch](QScreen* screen) {
            watch(screen);
            c->refresh();
        });
        QObject::connect(app, &QGuiApplication::screenRemoved, app, [c] { c->refresh(); });
        QObject::connect(app, &QGuiApplication::primaryScreenChanged, app, [c] { c->refresh(); });
        c->refresh();
        return c;
    }();
    return *copy;
}

} // namespace

CapturePlatform::ScreenLookup desktopScreenLookup()
{
    ScreenCopy& copy = screenCopy();
    return [&copy] {
        const std::lock_guard guard(copy.lock);
        return copy.screens;
    };
}

std::unique_ptr<CapturePlatform> loadCapturePlatform()
{
    return CapturePlatformLoader::load(CapturePlatformEnvironment::fromProcess(), {},
                                       desktopScreenLookup());
}

} // namespace nubo
