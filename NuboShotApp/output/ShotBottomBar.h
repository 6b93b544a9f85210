#pragma once

#include "output/ShotApplications.h"
#include "upload/UploadTypes.h"

#include <QLabel>
#include <QWidget>

#include <functional>

class QAction;
class QPushButton;
class QToolButton;

namespace nubo {

struct ShotUploadState;

// The handle a shot is dragged out by.
class ShotDragHandle : public QLabel {
    Q_OBJECT
public:
    explicit ShotDragHandle(QWidget* parent = nullptr);

signals:
    // The button went down on the handle: a drag may follow.
    void pressed();
    // The pointer left the press distance with the button down.
    void dragStarted();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    QPoint m_pressed;
    bool m_armed = false;
};

// The editor's bottom bar: the ways a shot leaves the editor and the pin
// that keeps the editor open; the editor adds its own controls at the end.
class ShotBottomBar : public QWidget {
    Q_OBJECT
public:
    explicit ShotBottomBar(QWidget* parent = nullptr);

    QPushButton* copyButton() const { return m_copy; }
    QPushButton* saveButton() const { return m_save; }
    QPushButton* saveAsButton() const { return m_saveAs; }
    // "Open With…": its menu lists the applications that open PNG images
    // and, where a portal answers, the portal's own chooser.
    QPushButton* shareButton() const { return m_share; }
    QToolButton* uploadButton() const { return m_upload; }
    QPushButton* cancelUploadButton() const { return m_cancelUpload; }
    QToolButton* pinButton() const { return m_pin; }
    QPushButton* pinToScreenButton() const { return m_pinToScreen; }
    ShotDragHandle* dragHandle() const { return m_drag; }
    bool isPinned() const;
    void setShareAvailable(bool available);
    // The upload button's words and help for this state; `destination` is
    // where an upload goes now, `bucketReady` whether S3 is set up.
    void showUpload(const ShotUploadState& state, ShotUploadDestination destination,
                    bool bucketReady);
    // Adds a widget after the pin (the editor's zoom controls).
    void addTrailing(QWidget* widget);

signals:
    void copyRequested();
    void quickSaveRequested();
    void saveAsRequested();
    void dragRequested();
    // "Other Application…": the portal's chooser.
    void shareRequested();
    void openWithRequested(const nubo::DesktopApplication& application);
    // The upload button: to the effective destination, or a chosen one.
    void uploadRequested();
    void uploadToRequested(ShotUploadDestination destination);
    void cancelUploadRequested();
    // "Pin": the shot above the other windows.
    void pinToScreenRequested();

private:
    QPushButton* m_copy = nullptr;
    QPushButton* m_pinToScreen = nullptr;
    QPushButton* m_save = nullptr;
    QPushButton* m_saveAs = nullptr;
    QPushButton* m_share = nullptr;
    bool m_portalShares = false;
    void listApplications();
    QToolButton* m_upload = nullptr;
    QAction* m_uploadToBucket = nullptr;
    QPushButton* m_cancelUpload = nullptr;
    QToolButton* m_pin = nullptr;
    ShotDragHandle* m_drag = nullptr;
};

} // namespace nubo
