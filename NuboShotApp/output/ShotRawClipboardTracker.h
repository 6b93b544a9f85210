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
class ShotOutputHost;

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
    static constexpr char replacedMeanwhileText[] =
        "The edited screenshot was not put on the clipboard: something else was copied "
        "while it was being prepared.";

    std::function<void(const QString&)> presentNotice;
    // The PNG of the clipboard item of a document at a scale; runs on a
    // worker thread and throws Error when it cannot be made.
    std::function<QByteArray(const ShotDocument&, double)> encodeClipboardItem;
    // A replacement that failed after its editor had gone.
    std::function<void(const QString&)> presentFailure;

    // Right after the capture wrote the raw shot to `clipboard`.
    void recordRawCopy(const ShotDocument& document, ShotClipboard& clipboard);
    // When an editor opens a shot.
    void adoptForEditor(const ShotOutputHost* editor);
    // The first time an editor changes its shot: tells the user once.
    void noticeIfStillRaw(const ShotOutputHost* editor);
    // When the editor closes: the edited shot takes the raw one's place. It
    // is drawn on a worker thread; it goes on the clipboard only when the
    // raw shot is still there by then. `alive` guards the editor: while it
    // lives, its document is marked as output once the write is done.
    void replaceRawWithEdited(ShotOutputHost* editor, QObject* alive);
    // The editor is gone without its shot replacing anything.
    void forget(const ShotOutputHost* editor);

    // The editor's raw shot is still what the clipboard holds: closing the
    // editor will put its edits there.
    bool holdsCapture(const ShotOutputHost* editor) const;

private:
    static std::optional<QUuid> identity(const ShotDocument& document);
    static bool isCurrent(const Capture& capture);

    QHash<QUuid, Capture> m_captures;
    QHash<const ShotOutputHost*, Capture> m_editors;
    QSet<const ShotOutputHost*> m_notices;
};

} // namespace nubo
