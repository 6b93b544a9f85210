#include "output/ShotRawClipboardTracker.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "editor/ShotEditorModel.h"
#include "output/ShotClipboard.h"

#include <QMimeData>

namespace nubo {

ShotRawClipboardTracker& ShotRawClipboardTracker::shared()
{
    static ShotRawClipboardTracker tracker;
    return tracker;
}

std::optional<QUuid> ShotRawClipboardTracker::identity(const ShotDocument& document)
{
    if (document.layers.isEmpty()) {
        return std::nullopt;
    }
    return document.layers.first().id;
}

bool ShotRawClipboardTracker::isCurrent(const Capture& capture)
{
    return capture.clipboard && capture.clipboard->changeCount() == capture.changeCount;
}

void ShotRawClipboardTracker::recordRawCopy(const ShotDocument& document, ShotClipboard& clipboard)
{
    m_captures.removeIf([](const auto& entry) { return !isCurrent(entry.value()); });
    if (const auto id = identity(document)) {
        m_captures.insert(*id, Capture{&clipboard, clipboard.changeCount()});
    }
}

void ShotRawClipboardTracker::adoptForEditor(const ShotEditorModel* editor)
{
    const auto id = identity(editor->document());
    if (!id) {
        return;
    }
    const auto found = m_captures.constFind(*id);
    if (found == m_captures.cend()) {
        return;
    }
    const Capture capture = *found;
    m_captures.erase(found);
    if (isCurrent(capture)) {
        m_editors.insert(editor, capture);
    }
}

void ShotRawClipboardTracker::noticeIfStillRaw(const ShotEditorModel* editor)
{
    if (m_notices.contains(editor)) {
        return;
    }
    m_notices.insert(editor);
    const auto found = m_editors.constFind(editor);
    if (found != m_editors.cend() && isCurrent(*found) && presentNotice) {
        presentNotice(QString::fromLatin1(noticeText));
    }
}

void ShotRawClipboardTracker::forget(const ShotEditorModel* editor)
{
    m_editors.remove(editor);
    m_notices.remove(editor);
}

void ShotRawClipboardTracker::replaceRawWithEdited(ShotEditorModel* editor)
{
    const auto found = m_editors.constFind(editor);
    if (found == m_editors.cend()) {
        forget(editor);
        return;
    }
    const Capture capture = *found;
    forget(editor);
    if (!isCurrent(capture) || !renderClipboardItem) {
        return;
    }
    const ShotDocument document = editor->document();
    std::unique_ptr<QMimeData> item = renderClipboardItem(document, editor->exportScale());
    if (!isCurrent(capture)) {
        return; // the user copied something else while we drew
    }
    capture.clipboard->write(std::move(item));
    qCInfo(lcApp, "Clipboard raw shot replaced with the edited shot");
    if (editor->document() == document) {
        editor->markOutput(document);
    }
}

} // namespace nubo
