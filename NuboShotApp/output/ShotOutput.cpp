#include "output/ShotOutput.h"

#include "core/Logging.h"
#include "core/Settings.h"
#include "editor/ShotEditorWindow.h"
#include "output/ShotClipboard.h"

#include <QMimeData>

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

bool finishOutput(ShotEditorWindow& editor, const ShotDocument& output, ShotOutputAction action,
                  Qt::KeyboardModifiers modifiers, bool mayClose,
                  const ShotPreferences& preferences)
{
    ShotEditorModel& model = editor.model();
    if (!(model.document() == output) || !model.isIdle()) {
        return false; // the user moved on meanwhile: leave the editor alone
    }
    model.markOutput(output);
    if (!mayClose || (modifiers & Qt::AltModifier) || editor.isPinned() ||
        !closesAfter(preferences, action)) {
        return false;
    }
    qCInfo(lcApp, "Editor closing after output action=%d", int(action));
    editor.close();
    return true;
}

void copyShot(ShotRenderer& renderer, const ShotDocument& document, double scale)
{
    std::unique_ptr<QMimeData> item = ShotClipboard::renderItem(renderer, document, scale);
    ShotClipboard::shared().write(std::move(item));
}

} // namespace nubo
