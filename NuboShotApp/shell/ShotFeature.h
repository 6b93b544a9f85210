#pragma once

#include "capture/CaptureTypes.h"
#include "capture/xcb/XcbScreenCapturer.h"
#include "editor/ShotEditorWindow.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>

#include <memory>

namespace nubo {

class ShotCaptureOverlay;
class ShotPreferences;
class ShotRenderer;

// Runs still captures and opens their results, and images from files, in
// editor windows. Main thread only.
class ShotFeature : public QObject {
    Q_OBJECT
public:
    ShotFeature(std::shared_ptr<XcbScreenCapturer> capturer, ShotPreferences& preferences,
                ShotRenderer& renderer, QObject* parent = nullptr);
    ~ShotFeature() override;

    // A capture request as the menu, the shortcuts and automation make it.
    void capture(CaptureMode mode);
    // Opens image files (or shot archives) in editors; returns the messages
    // of those that could not be opened.
    QStringList openFiles(const QStringList& files);
    // The editors open now.
    QList<ShotEditorWindow*> editors() const;
    // Offered for the current platform and state (scrolling comes with its session).
    static bool isOffered(CaptureMode mode);

    // How failures reach the user; replaceable for tests. The default is a
    // modal alert above other windows.
    std::function<void(const QString& title, const QString& text)> presentAlert;

signals:
    void editorOpened(ShotEditorWindow* editor);

private:
    ShotEditorWindow* openEditor(ShotDocument document);
    DisplayCapture captureUnderPointer();
    void finishCapture(const QImage& image, double scale);
    void closeOverlays();

    std::shared_ptr<XcbScreenCapturer> m_capturer;
    ShotPreferences& m_preferences;
    ShotRenderer& m_renderer;
    QList<QPointer<ShotEditorWindow>> m_editors;
    QList<QPointer<ShotCaptureOverlay>> m_overlays;
    QElapsedTimer m_requested; // for the latencies the log reports
    QElapsedTimer m_accepted;
};

} // namespace nubo
