#include "output/ShotRawClipboardTracker.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "export/ShotExporter.h"
#include "output/ShotClipboard.h"
#include "output/ShotOutputHost.h"

#include <QFutureWatcher>
#include <QMimeData>
#include <QPointer>
#include <QtConcurrent>

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

bool ShotRawClipboardTracker::holdsCapture(const ShotOutputHost* editor) const
{
    const auto found = m_editors.constFind(editor);
    return found != m_editors.cend() && isCurrent(*found);
}

void ShotRawClipboardTracker::recordRawCopy(const ShotDocument& document, ShotClipboard& clipboard)
{
    m_captures.removeIf([](const auto& entry) { return !isCurrent(entry.value()); });
    if (const auto id = identity(document)) {
        m_captures.insert(*id, Capture{&clipboard, clipboard.changeCount()});
    }
}

void ShotRawClipboardTracker::adoptForEditor(const ShotOutputHost* editor)
{
    const auto id = identity(editor->outputDocument());
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

void ShotRawClipboardTracker::noticeIfStillRaw(const ShotOutputHost* editor)
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

void ShotRawClipboardTracker::forget(const ShotOutputHost* editor)
{
    m_editors.remove(editor);
    m_notices.remove(editor);
}

void ShotRawClipboardTracker::replaceRawWithEdited(ShotOutputHost* editor, QObject* alive)
{
    const auto found = m_editors.constFind(editor);
    if (found == m_editors.cend()) {
        forget(editor);
        return;
    }
    const Capture capture = *found;
    forget(editor);
    if (!isCurrent(capture) || !encodeClipboardItem) {
        return;
    }
    const ShotDocument document = editor->outputDocument();
    const auto encode = encodeClipboardItem;
    // The PNG, or why it could not be made.
    using Encoded = std::pair<QByteArray, QString>;
    auto* watcher = new QFutureWatcher<Encoded>(capture.clipboard);
    QObject::connect(
        watcher, &QFutureWatcherBase::finished, capture.clipboard,
        [this, watcher, capture, document, editor, guard = QPointer<QObject>(alive)] {
            watcher->deleteLater();
            const auto [png, failure] = watcher->result();
            if (!failure.isEmpty()) {
                qCWarning(lcApp, "Edited shot not put on the clipboard: %s", qPrintable(failure));
                if (presentFailure) {
                    presentFailure(failure);
                }
                return;
            }
            if (!isCurrent(capture)) {
                // Something else was copied while we drew: that copy stays,
                // and the user hears where the edits did not go.
                qCWarning(lcApp, "Edited shot not put on the clipboard: it changed meanwhile");
                if (presentFailure) {
                    presentFailure(QString::fromLatin1(replacedMeanwhileText));
                }
                return;
            }
            capture.clipboard->write(ShotClipboard::makeItem(png));
            qCInfo(lcApp, "Clipboard raw shot replaced with the edited shot");
            if (guard && editor->outputDocument() == document) {
                editor->markOutput(document);
            }
        });
    watcher->setFuture(QtConcurrent::run([encode, document]() -> Encoded {
        try {
            return {encode(document, ShotExporter::defaultScale(document)), {}};
        } catch (const Error& error) {
            return {{}, error.message()};
        }
    }));
}

} // namespace nubo
