#pragma once

#include "editor/ShotCanvas.h"
#include "editor/ShotEditorModel.h"
#include "output/ShotOutputHost.h"

#include <QMainWindow>

#include <functional>

#include <memory>

class QActionGroup;
class QScreen;
class QTextEdit;

namespace nubo {

class ShotCanvasView;
class ShotOutputActions;
class ShotZoomControls;
class ShotPreferences;
class ShotTextLayer;
class ShotRenderer;

// One editor window: the tools, the canvas and the editor's own shortcuts.
// Its shot leaves through the output actions, which it serves as their host.
class ShotEditorWindow : public QMainWindow, public ShotOutputHost {
    Q_OBJECT
public:
    ShotEditorWindow(ShotDocument document, ShotPreferences& preferences, ShotRenderer& renderer,
                     QWidget* parent = nullptr);

    ShotEditorModel& model() { return *m_model; }
    ShotCanvas& canvas() { return *m_canvas; }
    ShotCanvasView& view() { return *m_view; }
    ShotZoomControls& zoomControls() { return *m_zoomControls; }
    // Sized for the shot at 100 % when that fits in 90 % of the screen's
    // free area, else that 90 % with the shot fitted; centred on the screen.
    // One wheel step of the current tool's size (0: whether it has one).
    bool resizeTool(int steps);
    void placeOnScreen(QScreen* screen);

    // Ctrl+C: the selected annotations when there is an explicit selection,
    // else the whole shot.
    void copy();
    // The shot's text on the clipboard (the words chosen with Select text,
    // else all of it), read first when it has not been.
    void copyText();
    // Finds secrets in the shot's text and pixelates those the user keeps
    // ticked, in one undo step.
    void hideSensitiveText();
    ShotTextLayer& textLayer() { return *m_textLayer; }
    void cut();
    void paste();

    // Copy, save, drag and share, with their close-after rules.
    ShotOutputActions& output() { return *m_output; }
    bool isPinned() const;
    void showNotice(const QString& text) override;

    // What the output actions see of this editor.
    const ShotDocument& outputDocument() const override { return m_model->document(); }
    bool isOutputIdle() const override { return m_model->isIdle(); }
    void markOutput(const ShotDocument& document) override { m_model->markOutput(document); }
    void closeAfterOutput() override { close(); }
    QWidget* outputWindow() override { return this; }
    void addImageFromFile();
    // An image file as a new layer centred on a document point (the middle
    // of the view when absent); says why not.
    void addImageFile(const QString& file, std::optional<QPointF> at);
    void addImage(const QImage& image, std::optional<QPointF> at);
    // The document point in the middle of the view, inside the shot.
    QPointF viewCentre() const;
    void reportAddProblem(const QString& problem);
    // Samples the shown colour at a document point: on the clipboard as
    // "#RRGGBB", the colour of the tools, and a short notice.
    void pickColor(QPointF point);
    const QString& lastNotice() const { return m_lastNotice; }
    // The shot as it is now, pinned to the screen (the editor stays open).
    void pinToScreen();

signals:
    // The shot to pin, drawn at its export scale.
    void pinRequested(const nubo::ShotDocument& document, const QImage& picture);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // Runs `use` once the shot's text is read (saying so meanwhile), or
    // tells why it could not be.
    void withReadText(std::function<void()> use);
    void startTextEditor(const QUuid& id);
    void finishTextEditor();
    void updateTitle();
    // The card of keys a first editor shows: the tools' letters and the commands.
    static QString keyHelpText();
    void syncTools();

    std::unique_ptr<ShotEditorModel> m_model;
    ShotPreferences& m_preferences;
    ShotRenderer& m_renderer;
    ShotOutputActions* m_output = nullptr;
    bool m_closeWhenIdle = false;
    QString m_lastNotice;
    QTextEdit* m_textEditor = nullptr;
    QPointF m_editedTextOrigin;
    ShotCanvas* m_canvas = nullptr;
    ShotCanvasView* m_view = nullptr;
    ShotZoomControls* m_zoomControls = nullptr;
    QActionGroup* m_tools = nullptr;
    ShotTextLayer* m_textLayer = nullptr;
};

} // namespace nubo
