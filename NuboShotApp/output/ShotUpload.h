#pragma once

#include "upload/UploadTypes.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <variant>

namespace nubo {

class ShotPreferences;
class Uploader;

// The upload button's state for one editor.
struct ShotUploadState {
    struct Idle {
        bool operator==(const Idle&) const = default;
    };
    struct Uploading {
        std::optional<double> progress; // 0…1 once known
        bool operator==(const Uploading&) const = default;
    };
    // Finished, the public link on the clipboard.
    struct Done {
        std::optional<QString> url;
        bool operator==(const Done&) const = default;
    };
    // Finished, the object key on the clipboard (a bucket without a public address).
    struct Uploaded {
        std::optional<QString> url;
        bool operator==(const Uploaded&) const = default;
    };
    struct Failed {
        QString message;
        bool operator==(const Failed&) const = default;
    };
    struct OutcomeUnknown {
        QString message;
        bool operator==(const OutcomeUnknown&) const = default;
    };
    std::variant<Idle, Uploading, Done, Uploaded, Failed, OutcomeUnknown> value;
    template <class T> bool is() const { return std::holds_alternative<T>(value); }
    bool operator==(const ShotUploadState&) const = default;

    // The button's words in this state, for uploads to `destination`.
    QString title(ShotUploadDestination destination) const;
};

// The observable holder of one editor's upload state, and the upload
// itself: the file goes on a worker thread, its progress and end come back
// here on the main thread, and the link or key goes on the clipboard.
class ShotUploadStatus : public QObject {
    Q_OBJECT
public:
    explicit ShotUploadStatus(ShotPreferences& preferences, QObject* parent = nullptr);
    ~ShotUploadStatus() override;

    const ShotUploadState& state() const { return m_state; }
    // The upload settings now, for `destination` or the one chosen in the
    // preferences; the defaults when the store cannot be read.
    UploadSettings settings(std::optional<ShotUploadDestination> destination = {}) const;
    // Where the running or last upload went.
    std::optional<ShotUploadDestination> lastDestination() const { return m_destination; }
    // An upload is being prepared or sent.
    bool isRunning() const { return m_state.is<ShotUploadState::Uploading>(); }

    // The shot is being written for an upload: the button says so, and a
    // cancel meanwhile stops the upload before it starts.
    void prepare();
    // The upload could not even start.
    void showFailure(const QString& message);
    // Uploads the file (read on the worker thread; it keeps its name
    // there) to `destination`, or to the effective one. Ignored while an
    // upload runs.
    void start(const QString& file, std::optional<ShotUploadDestination> destination = {});
    void cancel();
    // Back to idle (the shot changed): a finished upload's state goes.
    void reset();

    // Where the shared store lives; tests point it elsewhere.
    QString storePath;

signals:
    void changed(const ShotUploadState& state);

private:
    void set(ShotUploadState state);

    ShotPreferences& m_preferences;
    ShotUploadState m_state;
    std::shared_ptr<Uploader> m_uploader;
    std::optional<ShotUploadDestination> m_destination;
    bool m_cancelledBeforeStart = false;
};

} // namespace nubo
