#pragma once

#include "editor/ShotCanvas.h"
#include "editor/ShotEditorModel.h"

#include <QMainWindow>

#include <memory>

class QActionGroup;

namespace nubo {

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

    void copy();
    void paste();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void updateTitle();
    void syncTools();

    std::unique_ptr<ShotEditorModel> m_model;
    ShotCanvas* m_canvas = nullptr;
    QActionGroup* m_tools = nullptr;
};

} // namespace nubo
