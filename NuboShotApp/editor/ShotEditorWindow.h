#pragma once

#include "editor/ShotCanvas.h"
#include "editor/ShotEditorModel.h"

#include <QMainWindow>

#include <memory>

class QActionGroup;
class QTextEdit;

namespace nubo {

class ShotBottomBar;
class ShotPreferences;
class ShotRenderer;

// One editor window: the tools, the canvas and the editor's own shortcuts.
class ShotEditorWindow : public QMainWindow {
    Q_OBJECT
public:
    ShotEditorWindow(ShotDocument document, ShotPreferences& preferences, ShotRenderer& renderer,
                     QWidget* parent = nullptr);

    ShotEditorModel& model() { return *m_model; }
    ShotCanvas& canvas() { return *m_canvas; }

    // Ctrl+C: the selected annotations when there is an explicit selection,
    // else the whole shot.
    void copy();
    void paste();

    // The output actions; Alt in `modifiers` keeps the editor open.
    bool copyShot(Qt::KeyboardModifiers modifiers);
    bool quickSave(Qt::KeyboardModifiers modifiers);
    void saveAs();
    void dragOut();
    void share();
    bool isPinned() const;
    ShotBottomBar& bottomBar() { return *m_bottomBar; }
    void showNotice(const QString& text);
    void addImageFromFile();
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

    void presentFailure(const QString& title, const QString& message);

    std::unique_ptr<ShotEditorModel> m_model;
    ShotPreferences& m_preferences;
    ShotRenderer& m_renderer;
    ShotBottomBar* m_bottomBar = nullptr;
    QString m_lastNotice;
    QTextEdit* m_textEditor = nullptr;
    ShotCanvas* m_canvas = nullptr;
    QActionGroup* m_tools = nullptr;
};

} // namespace nubo
