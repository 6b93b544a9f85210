#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace nubo {

// Sharing through the desktop's portal: the "open with" chooser of the
// OpenURI portal for a file.
class ShotShare {
public:
    // Whether a portal answers (running or startable on the session bus).
    static bool isAvailable();
    // Asks the portal to offer `file` to the applications that open it, the
    // chooser parented to `window`; `done` hears an error text, empty on
    // success, when the portal has answered.
    static void openWith(const QString& file, const QWidget* window,
                         std::function<void(const QString& error)> done);
};

} // namespace nubo
