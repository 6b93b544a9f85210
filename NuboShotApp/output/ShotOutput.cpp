#include "output/ShotOutput.h"

#include "core/Logging.h"
#include "core/Settings.h"
#include "output/ShotOutputHost.h"

namespace nubo {

QString closeAfterKey(ShotOutputAction action)
{
    static constexpr const char* words[] = {"copy", "save", "drag"};
    return QStringLiteral("shot.closeAfter.") + QLatin1String(words[int(action)]);
}

bool closesAfter(const ShotPreferences& preferences, ShotOutputAction action)
{
    return preferences.boolean(closeAfterKey(action), true);
}

bool finishOutput(ShotOutputHost& editor, const ShotDocument& output, ShotOutputAction action,
                  Qt::KeyboardModifiers modifiers, bool mayClose, bool keepOpen,
                  const ShotPreferences& preferences)
{
    if (!(editor.outputDocument() == output) || !editor.isOutputIdle()) {
        return false; // the user moved on meanwhile: leave the editor alone
    }
    editor.markOutput(output);
    if (!mayClose || (modifiers & Qt::AltModifier) || keepOpen ||
        !closesAfter(preferences, action)) {
        return false;
    }
    qCInfo(lcApp, "Editor closing after output action=%d", int(action));
    editor.closeAfterOutput();
    return true;
}

} // namespace nubo
