#pragma once

#include "document/ShotDocument.h"

#include <QMimeData>
#include <QObject>
#include <QHash>

#include <optional>

#include <memory>

namespace nubo {

// The desktop clipboard (the CLIPBOARD selection) as the app sees it: a
// change count raised on every change, ours or another program's, and the
// registry of our own writes (the clipboard's name to the change count of
// our last write), so that a watcher does not take our writes for new
// clipboard content. Main thread only.
class ShotRenderer;

class ShotClipboard : public QObject {
    Q_OBJECT
public:
    static ShotClipboard& shared();

    long changeCount() const { return m_changeCount; }

    // Replaces the clipboard's content; returns the change count right after
    // the write. The count is recorded as one of our own writes.
    long write(std::unique_ptr<QMimeData> data);
    static constexpr char name[] = "clipboard";
    bool isOwnWrite(long changeCount) const { return ownWrite() == changeCount; }
    void recordOwnWrite(long changeCount) { m_ownWrites.insert(QLatin1String(name), changeCount); }
    // The change count of our last write, if the registry holds one.
    std::optional<long> ownWrite() const;
    void forgetOwnWrite() { m_ownWrites.remove(QLatin1String(name)); }

    // The shot drawn at `scale` as PNG data that records its size in points
    // (as its density); any thread. Throws Error when it cannot be made.
    static QByteArray encodeItem(ShotRenderer& renderer, const ShotDocument& document,
                                 double scale);
    // The clipboard item carrying that PNG; main thread.
    static std::unique_ptr<QMimeData> makeItem(const QByteArray& png);
    // Both at once, on the main thread.
    static std::unique_ptr<QMimeData> renderItem(ShotRenderer& renderer,
                                                 const ShotDocument& document, double scale);

signals:
    void changed(long changeCount);

private:
    ShotClipboard();
    void raise();

    long m_changeCount = 0;
    bool m_writing = false;
    QHash<QString, long> m_ownWrites;
};

} // namespace nubo
