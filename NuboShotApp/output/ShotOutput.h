#pragma once

#include "document/ShotDocument.h"
#include "export/ShotFormat.h"

#include <QString>
#include <Qt>

namespace nubo {

class ShotOutputHost;
class ShotPreferences;

// The ways a shot leaves the editor, in the order of their close-after words.
enum class ShotOutputAction { copy = 0, save = 1, drag = 2 };

// What was done with a shot, for those who keep track (recents, uploads).
enum class ShotOutputKind { copy, quickSave, saveAs, drag, share };
template <> struct EnumNames<ShotOutputKind> {
    static constexpr std::array names{"copy", "quickSave", "saveAs", "drag", "share"};
};

struct ShotOutputEvent {
    ShotOutputKind kind = ShotOutputKind::copy;
    ShotDocument document; // exactly what went out
    double scale = 1;
    ShotFormat format = ShotFormat::png;
    QString file; // the file written; empty for a copy
};

// "shot.closeAfter." + "copy" | "save" | "drag".
QString closeAfterKey(ShotOutputAction action);
// Missing or not a Boolean reads as true.
bool closesAfter(const ShotPreferences& preferences, ShotOutputAction action);

// After every successful output: when the editor still shows exactly the
// output document and is idle, the document counts as output, and the
// editor closes when `mayClose`, the action's setting says so, Alt was not
// held and the editor is not kept open (pinned). Returns whether it closed.
bool finishOutput(ShotOutputHost& editor, const ShotDocument& output, ShotOutputAction action,
                  Qt::KeyboardModifiers modifiers, bool mayClose, bool keepOpen,
                  const ShotPreferences& preferences);

} // namespace nubo
