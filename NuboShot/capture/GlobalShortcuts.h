#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace nubo {

// One shortcut that works wherever the keyboard focus is: a name of the
// caller's choosing and the keys. An empty sequence binds nothing.
struct GlobalShortcutBinding {
    QString id;
    QKeySequence keys;
    bool operator==(const GlobalShortcutBinding&) const = default;
};

// The platform's global shortcuts. Lives on the main thread, where it
// reports presses through `activated`.
class GlobalShortcuts {
public:
    virtual ~GlobalShortcuts() = default;

    std::function<void(const QString& id)> activated;

    // Replaces every earlier binding with these. A shortcut that cannot be
    // had (a key another program holds, a key not on the keyboard) is
    // skipped; the answer says which and why, in words, one line each.
    virtual QStringList bind(const QList<GlobalShortcutBinding>& bindings) = 0;
};

} // namespace nubo
