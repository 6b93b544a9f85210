#pragma once

#include "document/ShotDocument.h"

#include <QString>
#include <Qt>

namespace nubo {

class ShotEditorWindow;
class ShotPreferences;
class ShotRenderer;

// The ways a shot leaves the editor, in the order of their close-after words.
enum class ShotOutputAction { copy = 0, save = 1, drag = 2 };

// "shot.closeAfter." + "copy" | "save" | "drag".
QString closeAfterKey(ShotOutputAction action);
// Missing or not a Boolean reads as true.
bool closesAfter(const ShotPreferences& preferences, ShotOutputAction action);

// After every successful output: when the editor still shows exactly the
// output document and is idle, the document counts as output, and the
// editor closes when the action's setting says so, Alt was not held and the
// editor is not pinned. Returns whether the editor was closed.
bool finishOutput(ShotEditorWindow& editor, const ShotDocument& output, ShotOutputAction action,
                  Qt::KeyboardModifiers modifiers, bool mayClose,
                  const ShotPreferences& preferences);

// Puts the shot on the clipboard (cleared first) as PNG at the editor's
// export scale, recorded as our own write. Throws Error on failure.
void copyShot(ShotRenderer& renderer, const ShotDocument& document, double scale);

} // namespace nubo
