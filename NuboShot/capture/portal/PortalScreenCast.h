#pragma once

#include <QList>
#include <QPoint>
#include <QSize>
#include <QString>

#include <optional>

namespace nubo {

// One stream of a screen-cast session: a PipeWire node with what the
// desktop says of its source (logical position and size where it says).
struct PortalStream {
    quint32 node = 0;
    std::optional<QPoint> position;
    std::optional<QSize> size;
    bool operator==(const PortalStream&) const = default;
};

// A started session of the ScreenCast portal: the user's (or the stored)
// grant of one or more monitors, with a PipeWire stream for each. Closed
// when destroyed. Blocks the calling thread while starting.
class PortalScreenCast {
public:
    enum class Cursor { hidden = 1, embedded = 2, metadata = 4 };
    enum class Source { monitor = 1, window = 2 };
    struct Options {
        bool multiple = true;
        Cursor cursor = Cursor::hidden;
        // A grant kept from an earlier session; empty asks the user.
        QString restoreToken;
        // Windows are picked in the desktop's dialog each time, and no
        // grant is kept for them.
        Source source = Source::monitor;
    };

    // Creates, selects and starts the session. Throws CaptureError when
    // the user declines or the desktop refuses, Error otherwise.
    explicit PortalScreenCast(const Options& options);
    ~PortalScreenCast();
    PortalScreenCast(const PortalScreenCast&) = delete;
    PortalScreenCast& operator=(const PortalScreenCast&) = delete;

    const QList<PortalStream>& streams() const { return m_streams; }
    // The grant to keep for the next session; every start renews it and the
    // last one is the only one valid. Empty when the desktop keeps none.
    const QString& restoreToken() const { return m_restoreToken; }
    // The cursor modes the desktop offers (Cursor bits).
    static uint cursorModes();
    // Whether the desktop casts single windows, picked in its own dialog.
    static bool castsWindows();
    // A descriptor of the PipeWire connection that sees this session's
    // streams; the caller owns it.
    int openPipeWireRemote();

private:
    QString m_session;
    QList<PortalStream> m_streams;
    QString m_restoreToken;
};

} // namespace nubo
