#include "editor/ShotEditorWindow.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "document/ShotImageFile.h"
#include "editor/ShotCropBar.h"
#include "editor/ShotStyleBar.h"
#include "editor/ShotZoomControls.h"
#include "output/ShotOutputActions.h"
#include "render/ShotFonts.h"
#include "render/ShotRenderer.h"

#include <QAction>
#include <QActionGroup>
#include <QClipboard>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QTextEdit>
#include <QToolBar>

namespace nubo {

ShotEditorWindow::ShotEditorWindow(ShotDocument document, ShotPreferences& preferences,
                                   ShotRenderer& renderer, QWidget* parent)
    : QMainWindow(parent),
      m_model(std::make_unique<ShotEditorModel>(std::move(document), preferences)),
      m_preferences(preferences), m_renderer(renderer)
{
    m_canvas = new ShotCanvas(*m_model, renderer, this);
    setCentralWidget(m_canvas);
    setAcceptDrops(true);

    QToolBar* toolbar = addToolBar(QStringLiteral("Tools"));
    toolbar->setMovable(false);
    toolbar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_tools = new QActionGroup(this);
    const ShotToolContext context{nullptr, [this] { addImageFromFile(); }};
    for (const ShotToolKind tool : allCases<ShotToolKind>()) {
        QAction* action = toolbar->addAction(toolTitle(tool));
        action->setShortcut(QKeySequence(QString(toolShortcut(tool))));
        action->setToolTip(QStringLiteral("%1 (%2)").arg(toolTitle(tool)).arg(toolShortcut(tool)));
        if (isActionTool(tool)) {
            // Not a mode: its button acts at once (Add image asks for a file).
            connect(action, &QAction::triggered, this,
                    [tool, context] { ShotTool::trigger(tool, context); });
            continue;
        }
        action->setCheckable(true);
        action->setData(int(tool));
        m_tools->addAction(action);
        connect(action, &QAction::triggered, this, [this, tool] { m_model->setActiveTool(tool); });
    }

    addToolBarBreak();
    addToolBar(new ShotStyleBar(*m_model, this));
    addToolBar(Qt::BottomToolBarArea, new ShotCropBar(*m_model, this));
    addToolBarBreak(Qt::BottomToolBarArea);
    QToolBar* outputBar = addToolBar(QStringLiteral("Output"));
    addToolBar(Qt::BottomToolBarArea, outputBar);
    outputBar->setMovable(false);
    m_output = new ShotOutputActions(*this, preferences, renderer, this);
    auto* bottom = new QWidget(outputBar);
    auto* bottomLayout = new QHBoxLayout(bottom);
    bottomLayout->setContentsMargins(0, 0, 0, 0);
    bottomLayout->addWidget(m_output->barWidget(), 1);
    bottomLayout->addWidget(new ShotZoomControls(*m_canvas, bottom));
    outputBar->addWidget(bottom);
    connect(m_output, &ShotOutputActions::idle, this, [this] {
        if (std::exchange(m_closeWhenIdle, false)) {
            close();
        }
    });
    connect(m_canvas, &ShotCanvas::colorPickRequested, this, &ShotEditorWindow::pickColor);
    connect(m_model.get(), &ShotEditorModel::textEditingStarted, this,
            &ShotEditorWindow::startTextEditor);

    const auto add = [this](const QString& title, QKeySequence keys, auto slot) {
        QAction* action = new QAction(title, this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
        return action;
    };
    add(QStringLiteral("Undo"), QKeySequence::Undo, [this] { m_model->undo(); });
    add(QStringLiteral("Redo"), QKeySequence::Redo, [this] { m_model->redo(); });
    add(QStringLiteral("Select All"), QKeySequence::SelectAll, [this] { m_model->selectAll(); });
    add(QStringLiteral("Delete"), QKeySequence::Delete, [this] { m_model->deleteSelection(); });
    add(QStringLiteral("Copy"), QKeySequence::Copy, [this] { copy(); });
    add(QStringLiteral("Save"), QKeySequence(Qt::CTRL | Qt::Key_S),
        [this] { m_output->quickSave(QGuiApplication::queryKeyboardModifiers()); });
    // Alt with the output keys keeps the editor open, as Alt on the buttons does.
    add(QStringLiteral("Copy and Keep Open"), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_C),
        [this] { m_output->copy(Qt::AltModifier); });
    add(QStringLiteral("Save and Keep Open"), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_S),
        [this] { m_output->quickSave(Qt::AltModifier); });
    add(QStringLiteral("Save As"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
        [this] { m_output->saveAs(); });
    add(QStringLiteral("Cut"), QKeySequence::Cut, [this] { cut(); });
    add(QStringLiteral("Paste"), QKeySequence::Paste, [this] { paste(); });
    add(QStringLiteral("Bring Forward"), QKeySequence(Qt::CTRL | Qt::Key_BracketRight),
        [this] { m_model->bringForward(); });
    add(QStringLiteral("Send Backward"), QKeySequence(Qt::CTRL | Qt::Key_BracketLeft),
        [this] { m_model->sendBackward(); });
    add(QStringLiteral("Zoom In"), QKeySequence::ZoomIn,
        [this] { m_canvas->setZoom(m_canvas->zoom() * 1.25); });
    add(QStringLiteral("Zoom Out"), QKeySequence::ZoomOut,
        [this] { m_canvas->setZoom(m_canvas->zoom() / 1.25); });
    add(QStringLiteral("Actual Size"), QKeySequence(Qt::CTRL | Qt::Key_0),
        [this] { m_canvas->setZoom(1); });
    add(QStringLiteral("Fit in Window"), QKeySequence(Qt::CTRL | Qt::Key_9),
        [this] { m_canvas->setFitsWindow(true); });

    connect(m_model.get(), &ShotEditorModel::changed, this, [this] {
        syncTools();
        updateTitle();
        m_output->documentChanged(m_model->canUndo());
    });
    syncTools();
    updateTitle();
    const QSize hint = m_canvas->sizeHint();
    resize(std::min(hint.width(), 1400), std::min(hint.height() + 60, 900));
}

void ShotEditorWindow::pickColor(QPointF point)
{
    // The colour as it is shown: the whole document drawn, at export scale.
    const ShotDocument& document = m_model->document();
    const double scale = m_model->exportScale();
    const QImage rendered = m_renderer.render(document, scale);
    const QPoint pixel = document.exportPoint(point, scale).toPoint();
    if (!rendered.rect().contains(pixel)) {
        return;
    }
    const QColor color = rendered.pixelColor(pixel);
    const QString name = color.name(QColor::HexRgb).toUpper();
    QGuiApplication::clipboard()->setText(name);
    ShotStyle style = m_model->style(ShotToolKind::arrow);
    style.color = ShotColor::fromQColor(color);
    for (const ShotToolKind tool : allCases<ShotToolKind>()) {
        if (createsAnnotations(tool)) {
            ShotStyle toolStyle = m_model->style(tool);
            toolStyle.color = style.color;
            m_model->setStyle(tool, toolStyle);
        }
    }
    m_lastNotice = name + QStringLiteral(" copied");
    statusBar()->showMessage(m_lastNotice, 3000);
}

namespace {

// The in-place text editor: ends on Escape and when it loses the focus.
class TextEditor : public QTextEdit {
public:
    std::function<void()> finished;

    using QTextEdit::QTextEdit;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Escape) {
            finished();
            return;
        }
        QTextEdit::keyPressEvent(event);
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        QTextEdit::focusOutEvent(event);
        if (event->reason() != Qt::PopupFocusReason) {
            finished();
        }
    }
};

} // namespace

void ShotEditorWindow::startTextEditor(const QUuid& id)
{
    finishTextEditor();
    const auto& list = m_model->document().annotations;
    const auto it =
        std::find_if(list.cbegin(), list.cend(), [&](const Annotation& a) { return a.id == id; });
    if (it == list.cend()) {
        return;
    }
    const auto& content = std::get<TextAnnotation>(it->kind).content;
    const double zoom = m_canvas->zoom();
    auto* editor = new TextEditor(m_canvas);
    editor->setAcceptRichText(false);
    editor->setFrameStyle(QFrame::NoFrame);
    editor->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    editor->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    editor->document()->setDocumentMargin(0);
    QFont font(ShotFonts::textFamily());
    font.setPixelSize(std::max(1, int(std::lround(it->style.fontSize * zoom))));
    editor->setFont(font);
    QPalette palette = editor->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, it->style.color.toQColor());
    editor->setPalette(palette);
    editor->setStyleSheet(
        QStringLiteral("QTextEdit { border: 1px dashed #2878ff; background: transparent; }"));
    editor->setPlainText(content.text);
    editor->setGeometry(m_canvas->toWidget(content.rect.normalized()).toAlignedRect());
    editor->finished = [this] {
        QMetaObject::invokeMethod(this, &ShotEditorWindow::finishTextEditor, Qt::QueuedConnection);
    };
    connect(editor, &QTextEdit::textChanged, this, [this, editor, zoom] {
        if (editor->document()->characterCount() - 1 > TextContent::maximumLength) {
            // Typed or pasted past the limit: the rest is cut, and the user told.
            QTextCursor cut(editor->document());
            cut.setPosition(int(TextContent::maximumLength));
            cut.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
            cut.removeSelectedText(); // changes the text again, within the limit
            showNotice(QStringLiteral("A text holds at most %L1 characters.")
                           .arg(TextContent::maximumLength));
            return;
        }
        const double height = editor->document()->size().height() + 4;
        editor->resize(editor->width(), std::max(editor->height(), int(std::ceil(height))));
        m_model->setEditedText(editor->toPlainText(), height / zoom);
    });
    m_textEditor = editor;
    editor->show();
    editor->setFocus(Qt::OtherFocusReason);
    editor->moveCursor(QTextCursor::End);
}

void ShotEditorWindow::finishTextEditor()
{
    if (!m_textEditor) {
        return;
    }
    QTextEdit* editor = std::exchange(m_textEditor, nullptr);
    editor->hide();
    editor->deleteLater();
    m_model->endTextEditing();
    m_canvas->setFocus();
}

void ShotEditorWindow::addImageFromFile()
{
    const QString file = QFileDialog::getOpenFileName(
        this, QStringLiteral("Add Image"), QString(),
        QStringLiteral("Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)"));
    if (!file.isEmpty()) {
        addImageFile(file, m_canvas->toDocument(QPointF(0, 0)));
    }
}

void ShotEditorWindow::addImageFile(const QString& file, QPointF at)
{
    QString problem;
    try {
        problem = m_model->addImageLayer(ShotImageFile::read(file), at);
    } catch (const Error& error) {
        problem = error.message();
    }
    reportAddProblem(problem);
}

void ShotEditorWindow::reportAddProblem(const QString& problem)
{
    if (!problem.isEmpty()) {
        qCWarning(lcApp, "Image not added: %s", qPrintable(problem));
        QMessageBox::warning(this, QStringLiteral("Could Not Add Image"), problem);
    }
}

void ShotEditorWindow::copy()
{
    const QByteArray data =
        m_model->selectionIsExplicit() ? m_model->copySelection() : QByteArray();
    if (data.isEmpty()) {
        m_output->copy(QGuiApplication::queryKeyboardModifiers());
        return;
    }
    auto* mime = new QMimeData;
    mime->setData(QLatin1String(ShotEditorModel::clipboardType), data);
    QGuiApplication::clipboard()->setMimeData(mime);
}

void ShotEditorWindow::cut()
{
    // Only what the user selected is cut. The selection a new annotation
    // gets by itself is not a choice to cut it (nor is the whole shot a
    // thing to cut).
    const QByteArray data =
        m_model->selectionIsExplicit() ? m_model->copySelection() : QByteArray();
    if (data.isEmpty()) {
        showNotice(QStringLiteral("Select annotations to cut them"));
        return;
    }
    auto mime = std::make_unique<QMimeData>();
    mime->setData(QLatin1String(ShotEditorModel::clipboardType), data);
    QGuiApplication::clipboard()->setMimeData(mime.release());
    m_model->cutSelection();
}

void ShotEditorWindow::paste()
{
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    if (!mime) {
        return;
    }
    if (mime->hasFormat(QLatin1String(ShotEditorModel::clipboardType))) {
        m_model->paste(mime->data(QLatin1String(ShotEditorModel::clipboardType)));
    } else if (mime->hasImage()) {
        // An image from elsewhere becomes a new layer at the top-left of the view.
        reportAddProblem(m_model->addImageLayer(qvariant_cast<QImage>(mime->imageData()),
                                                m_canvas->toDocument(QPointF(0, 0))));
    }
}

void ShotEditorWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls() || event->mimeData()->hasImage()) {
        event->acceptProposedAction();
    }
}

void ShotEditorWindow::dropEvent(QDropEvent* event)
{
    const QPointF at = m_canvas->toDocument(m_canvas->mapFrom(this, event->position().toPoint()));
    if (event->mimeData()->hasImage()) {
        reportAddProblem(
            m_model->addImageLayer(qvariant_cast<QImage>(event->mimeData()->imageData()), at));
    }
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) {
            addImageFile(url.toLocalFile(), at);
        }
    }
    event->acceptProposedAction();
}

void ShotEditorWindow::syncTools()
{
    for (QAction* action : m_tools->actions()) {
        action->setChecked(action->data().toInt() == int(m_model->activeTool()));
    }
}

void ShotEditorWindow::updateTitle()
{
    const QSizeF size = m_model->document().visibleRect().size() * m_model->exportScale();
    setWindowTitle(
        QStringLiteral("%1 \u00d7 %2").arg(qRound(size.width())).arg(qRound(size.height())));
}

void ShotEditorWindow::keyPressEvent(QKeyEvent* event)
{
    const double step = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        m_model->nudge({-step, 0});
        return;
    case Qt::Key_Right:
        m_model->nudge({step, 0});
        return;
    case Qt::Key_Up:
        m_model->nudge({0, -step});
        return;
    case Qt::Key_Down:
        m_model->nudge({0, step});
        return;
    case Qt::Key_Backspace:
        m_model->deleteSelection();
        return;
    case Qt::Key_Escape:
        if (m_model->cropSession()) {
            m_model->abandonCrop();
            m_model->setActiveTool(ShotToolKind::select);
            return;
        }
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_model->cropSession()) {
            m_model->commitCrop();
            return;
        }
        break;
    default:
        break;
    }
    QMainWindow::keyPressEvent(event);
}

bool ShotEditorWindow::isPinned() const
{
    return m_output->isPinned();
}

void ShotEditorWindow::showNotice(const QString& text)
{
    m_lastNotice = text;
    statusBar()->showMessage(text, 4000);
}

void ShotEditorWindow::closeEvent(QCloseEvent* event)
{
    if (m_output->isBusy()) {
        // A copy or save is still under way: the editor goes once it is done.
        m_closeWhenIdle = true;
        event->ignore();
        return;
    }
    const bool unsaved = m_model->canUndo() && !m_model->isOutputCurrent();
    if (unsaved && !m_output->closeKeepsEdits()) {
        QMessageBox box(QMessageBox::Question, QStringLiteral("Discard this screenshot?"),
                        QStringLiteral("Your changes to this screenshot have not been copied or "
                                       "saved."),
                        QMessageBox::NoButton, this);
        QPushButton* discard =
            box.addButton(QStringLiteral("Discard"), QMessageBox::DestructiveRole);
        box.addButton(QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Cancel);
        box.exec();
        if (box.clickedButton() != discard) {
            event->ignore();
            return;
        }
    }
    m_output->editorClosing();
    event->accept();
}

} // namespace nubo
