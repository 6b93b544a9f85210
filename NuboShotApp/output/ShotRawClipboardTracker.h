#pragma once

#include "document/ShotDocument.h"

#include <QHash>
#include <QSet>
#include <QUuid>

#include <functional>
#include <memory>

class QMimeData;

namespace nubo {

class ShotClipboard;
class ShotEditorModel;

// Keeps the clipboard honest when the raw shot was copied at capture time:
// an editor that opens on that shot adopts the copy, and when the editor
// is done the edited shot replaces the raw one, unless the user has put
// something else on the clipboard meanwhile. Main thread only.
class ShotRawClipboardTracker {
public:
    struct Capture {
        ShotClipboard* clipboard = nullptr;
        long changeCount = 0;
    };

    static ShotRawClipboardTracker& shared();
    static constexpr char noticeText[] = "Clipboard still holds the original screenshot";

    std::function<void(const QString&)> presentNotice;
    std::function<std::unique_ptr<QMimeData>(const ShotDocument&, double)> renderClipboardItem;

    // Right after the capture wrote the raw shot to `clipboard`.
    void recordRawCopy(const ShotDocument& document, ShotClipboard& clipboard);
    // When an editor opens a shot.
    void adoptForEditor(const ShotEditorModel* editor);
    // The first time an editor changes its shot: tells the user once.
    void noticeIfStillRaw(const ShotEditorModel* editor);
    // When the editor closes: the edited shot takes the raw one's place.
    // Throws Error when the clipboard could not be written.
    void replaceRawWithEdited(ShotEditorModel* editor);
    // The editor is gone without its shot replacing anything.
    void forget(const ShotEditorModel* editor);

    bool holdsCapture(const ShotEditorModel* editor) const { return m_editors.contains(editor); }

private:
    static std::optional<QUuid> identity(const ShotDocument& document);
    static bool isCurrent(const Capture& capture);

    QHash<QUuid, Capture> m_captures;
    QHash<const ShotEditorModel*, Capture> m_editors;
    QSet<const ShotEditorModel*> m_notices;
};

} // namespace nubo
