#pragma once

#include "output/ShotOutput.h"
#include "upload/UploadTypes.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QString>

class QWidget;

#include <functional>
#include <optional>

namespace nubo {

struct DesktopApplication;

class ShotBottomBar;
class ShotOutputHost;
class ShotPreferences;
class ShotRenderer;
class ShotUploadStatus;

// Every way a shot leaves one editor: copy, quick save, Save As, drag and
// share, with the close-after rules and the raw-clipboard bookkeeping. The
// drawing, encoding and writing run on worker threads, one output at a
// time in the order asked; the editor stays responsive meanwhile, and the
// results are handled back on the main thread. Talks to the editor only
// through ShotOutputHost. Main thread only.
class ShotOutputActions : public QObject {
    Q_OBJECT
public:
    ShotOutputActions(ShotOutputHost& host, ShotPreferences& preferences, ShotRenderer& renderer,
                      QObject* parent = nullptr);
    ~ShotOutputActions() override;

    // The bar with the output buttons; the editor places it.
    ShotBottomBar& bar() { return *m_bar; }
    QWidget* barWidget();
    // The pin keeps the editor open after an output.
    bool isPinned() const;
    // An output is under way (or waiting for its turn).
    bool isBusy() const { return m_running || !m_queue.isEmpty(); }

    // Alt in `modifiers` (held at the moment of asking) keeps the editor open.
    void copy(Qt::KeyboardModifiers modifiers);
    void quickSave(Qt::KeyboardModifiers modifiers);
    void saveAs();
    // Prepares the drag's file as soon as the handle is pressed, and drags
    // it out once the pointer has moved far enough.
    void prepareDrag();
    void dragOut();
    // Opens the shot in an application of the desktop's list.
    void openWith(const DesktopApplication& application);
    void share();
    // Uploads the shot as PNG, to `destination` or where the settings say.
    // Pressed again: a finished upload copies its link again, a failed one
    // retries, one whose outcome is unknown asks first.
    void upload(std::optional<ShotUploadDestination> destination = {});
    ShotUploadStatus& uploadStatus() { return *m_upload; }

    // The raw shot on the clipboard (copied at capture) belongs to this
    // editor from now on, if it is still there.
    void adoptRawCopy();
    // The editor's document changed: the first change of a shot whose raw
    // form is on the clipboard says so once.
    void documentChanged(bool hasChanges);
    // Closing keeps the edits: they will replace the raw shot on the clipboard.
    bool closeKeepsEdits() const;
    // The editor is closing: the edited shot replaces the raw one.
    void editorClosing();

    // How failures reach the user; replaceable for tests. The default is an
    // alert attached to the editor's window.
    std::function<void(const QString& title, const QString& message)> presentFailure;
    // Asks before retrying an upload that may have arrived; true to retry.
    std::function<bool()> confirmUnknownRetry;

signals:
    // A shot went out: what was done, with exactly the document that went.
    void shotOutput(const ShotOutputEvent& event);
    // Nothing is under way any more.
    void idle();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // What a worker made: bytes, a file, a picture, or why it failed.
    struct Made {
        QByteArray bytes;
        QString file;
        QImage picture;
        QString error;
    };
    struct Job {
        std::function<Made()> work;                // on a worker thread
        std::function<void(const Made&)> finished; // back on the main thread
    };
    void submit(std::function<Made()> work, std::function<void(const Made&)> finished);
    void startNext();
    void startDrag(const ShotDocument& output, const Made& made);
    void finishFor(const ShotDocument& output, ShotOutputAction action,
                   Qt::KeyboardModifiers modifiers);
    void fail(const QString& title, const QString& message);
    void showUpload();

    ShotOutputHost& m_host;
    ShotPreferences& m_preferences;
    ShotRenderer& m_renderer;
    ShotBottomBar* m_bar = nullptr;
    QList<Job> m_queue;
    bool m_running = false;
    // The drag's file, prepared from this document.
    struct PreparedDrag {
        ShotDocument document;
        std::optional<Made> made; // once written
        bool wanted = false;      // the pointer has started the drag
    };
    std::optional<PreparedDrag> m_drag;
    ShotUploadStatus* m_upload = nullptr;
    // The document the current upload state is about.
    std::optional<ShotDocument> m_uploaded;
    ShotUploadDestination m_idleDestination = ShotUploadDestination::filebin;
    bool m_bucketReady = false;
};

} // namespace nubo
