#pragma once

#include "editor/ShotCanvas.h"
#include "editor/ShotEditorModel.h"
#include "output/ShotOutputHost.h"

#include <QMainWindow>

#include <memory>

class QActionGroup;
class QTextEdit;

namespace nubo {

class ShotOutputActions;
class ShotPreferences;
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

    // Ctrl+C: the selected annotations when there is an explicit selection,
    // else the whole shot.
    void copy();
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
    // An image file as a new layer at a document point; says why not.
    void addImageFile(const QString& file, QPointF at);
    void reportAddProblem(const QString& problem);
    // Samples the shown colour at a document point: on the clipboard as
    // "#RRGGBB", the colour of the tools, and a short notice.
    void pickColor(QPointF point);
    const QString& lastNotice() const { return m_lastNotice; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void startTextEditor(const QUuid& id);
    void finishTextEditor();
    void updateTitle();
    void syncTools();

    std::unique_ptr<ShotEditorModel> m_model;
    ShotPreferences& m_preferences;
    ShotRenderer& m_renderer;
    ShotOutputActions* m_output = nullptr;
    bool m_closeWhenIdle = false;
    QString m_lastNotice;
    QTextEdit* m_textEditor = nullptr;
    ShotCanvas* m_canvas = nullptr;
    QActionGroup* m_tools = nullptr;
};

} // namespace nubo
