#include "editor/ShotEditorWindow.h"

#include "core/Settings.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "document/ShotImageFile.h"
#include "editor/ShotCanvasView.h"
#include "editor/ShotCropBar.h"
#include "editor/ShotStyleBar.h"
#include "editor/ShotZoomControls.h"
#include "output/ShotOutputActions.h"
#include "render/ShotFonts.h"
#include "output/ShotBottomBar.h"
#include "render/ShotRenderer.h"
#include "style/ShotIcons.h"
#include "output/ShotClipboard.h"
#include "recognition/SensitiveText.h"
#include "text/ShotSensitiveTextDialog.h"
#include "text/ShotTextLayer.h"

#include <QAction>
#include <QActionGroup>
#include <QClipboard>
#include <QCursor>
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
#include <QScreen>
#include <QTextEdit>
#include <QToolBar>
#include <QUuid>

namespace nubo {

ShotEditorWindow::ShotEditorWindow(ShotDocument document, ShotPreferences& preferences,
                                   ShotRenderer& renderer, QWidget* parent)
    : QMainWindow(parent),
      m_model(std::make_unique<ShotEditorModel>(std::move(document), preferences)),
      m_preferences(preferences), m_renderer(renderer)
{
    m_canvas = new ShotCanvas(*m_model, renderer);
    m_view = new ShotCanvasView(m_canvas, this);
    m_view->resizeTool = [this](int steps) { return resizeTool(steps); };
    setCentralWidget(m_view);
    setAcceptDrops(true);

    QToolBar* toolbar = addToolBar(tr("Tools"));
    toolbar->setObjectName(QStringLiteral("toolBar"));
    toolbar->setMovable(false);
    toolbar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    toolbar->setIconSize(QSize(20, 20));
    // The active tool stands out: the highlight behind it, its icon in the
    // highlighted text colour (the icon's "on" state).
    toolbar->setStyleSheet(QStringLiteral(
        "QToolBar#toolBar { spacing: 2px; padding: 3px 6px; }"
        "QToolBar#toolBar QToolButton { padding: 4px; border-radius: 5px; }"
        "QToolBar#toolBar QToolButton:hover { background: palette(midlight); }"
        "QToolBar#toolBar QToolButton:checked { background: palette(highlight); }"));
    m_tools = new QActionGroup(this);
    const ShotToolContext context{nullptr, [this] { addImageFromFile(); }};
    for (const ShotToolKind tool : allCases<ShotToolKind>()) {
        QAction* action = toolbar->addAction(ShotIcons::icon(toolIconName(tool)), toolTitle(tool));
        action->setObjectName(QStringLiteral("tool.") + toString(tool));
        action->setShortcut(QKeySequence(QString(toolShortcut(tool))));
        action->setToolTip(QStringLiteral("%1 (%2)").arg(toolTitle(tool)).arg(toolShortcut(tool)));
        if (tool == ShotToolKind::select || tool == ShotToolKind::colorPicker) {
            // Between what frames the shot, what draws on it and what reads it.
            toolbar->insertSeparator(action);
        }
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
    auto* styleBar = new ShotStyleBar(*m_model, preferences, this);
    addToolBar(styleBar);
    addToolBar(Qt::BottomToolBarArea, new ShotCropBar(*m_model, this));
    addToolBarBreak(Qt::BottomToolBarArea);
    QToolBar* outputBar = addToolBar(tr("Output"));
    addToolBar(Qt::BottomToolBarArea, outputBar);
    outputBar->setMovable(false);
    m_output = new ShotOutputActions(*this, preferences, renderer, this);
    auto* bottom = new QWidget(outputBar);
    auto* bottomLayout = new QHBoxLayout(bottom);
    bottomLayout->setContentsMargins(0, 0, 8, 0);
    bottomLayout->addWidget(m_output->barWidget(), 1);
    m_zoomControls = new ShotZoomControls(*m_view, bottom);
    bottomLayout->addWidget(m_zoomControls);
    outputBar->addWidget(bottom);
    // Every tool stays in sight at the narrowest the editor gets.
    setMinimumWidth(std::max(toolbar->sizeHint().width(), outputBar->minimumSizeHint().width()));
    connect(m_output, &ShotOutputActions::idle, this, [this] {
        if (std::exchange(m_closeWhenIdle, false)) {
            close();
        }
    });
    connect(m_canvas, &ShotCanvas::colorPickRequested, this, &ShotEditorWindow::pickColor);
    // The shot's text and codes, over the canvas.
    m_textLayer = new ShotTextLayer(*m_canvas, *m_model, preferences);
    connect(m_textLayer, &ShotTextLayer::notice, this, &ShotEditorWindow::showNotice);
    auto* copyText = new QAction(ShotIcons::icon(QStringLiteral("edit-copy")), tr("Copy Text"), this);
    copyText->setObjectName(QStringLiteral("copyText"));
    copyText->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    copyText->setToolTip(tr("Copy the shot's text, or the selected words (Ctrl+Shift+C)"));
    connect(copyText, &QAction::triggered, this, &ShotEditorWindow::copyText);
    addAction(copyText);
    auto* hideSensitive = new QAction(ShotIcons::icon(QStringLiteral("nuboshot-pixelate")),
                                      tr("Hide Sensitive Text\u2026"), this);
    hideSensitive->setObjectName(QStringLiteral("hideSensitiveText"));
    hideSensitive->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_H));
    hideSensitive->setToolTip(
        tr("Pixelate e-mail addresses, phone numbers, keys and the like (Ctrl+Shift+H)"));
    connect(hideSensitive, &QAction::triggered, this, &ShotEditorWindow::hideSensitiveText);
    addAction(hideSensitive);
    styleBar->addTextActions({copyText, hideSensitive});
    connect(m_model.get(), &ShotEditorModel::textEditingStarted, this,
            &ShotEditorWindow::startTextEditor);

    const auto add = [this](const QString& title, QKeySequence keys, auto slot) {
        QAction* action = new QAction(title, this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
        return action;
    };
    add(tr("Undo"), QKeySequence::Undo, [this] { m_model->undo(); });
    add(tr("Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
        [this] { m_model->redo(); })
        ->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
                        QKeySequence(Qt::CTRL | Qt::Key_Y)});
    add(tr("Close"), QKeySequence(Qt::CTRL | Qt::Key_W), [this] { close(); });
    add(tr("Pin to Screen"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P), [this] { pinToScreen(); });
    connect(&m_output->bar(), &ShotBottomBar::pinToScreenRequested, this, &ShotEditorWindow::pinToScreen);
    add(tr("Select All"), QKeySequence::SelectAll, [this] { m_model->selectAll(); });
    add(tr("Delete"), QKeySequence::Delete, [this] { m_model->deleteSelection(); });
    add(tr("Copy"), QKeySequence::Copy, [this] { copy(); });
    add(tr("Save"), QKeySequence(Qt::CTRL | Qt::Key_S),
        [this] { m_output->quickSave(QGuiApplication::queryKeyboardModifiers()); });
    // Alt with the output keys keeps the editor open, as Alt on the buttons does.
    add(tr("Copy and Keep Open"), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_C),
        [this] { m_output->copy(Qt::AltModifier); });
    add(tr("Save and Keep Open"), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_S),
        [this] { m_output->quickSave(Qt::AltModifier); });
    add(tr("Save As"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
        [this] { m_output->saveAs(); });
    add(tr("Cut"), QKeySequence::Cut, [this] { cut(); });
    add(tr("Paste"), QKeySequence::Paste, [this] { paste(); });
    add(tr("Bring Forward"), QKeySequence(Qt::CTRL | Qt::Key_BracketRight),
        [this] { m_model->bringForward(); });
    add(tr("Send Backward"), QKeySequence(Qt::CTRL | Qt::Key_BracketLeft),
        [this] { m_model->sendBackward(); });
    add(tr("Zoom In"), QKeySequence::ZoomIn, [this] { m_view->zoomIn(); })
        ->setShortcuts({QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    add(tr("Zoom Out"), QKeySequence::ZoomOut, [this] { m_view->zoomOut(); });
    add(tr("Actual Size"), QKeySequence(Qt::CTRL | Qt::Key_0),
        [this] { m_view->zoomTo(1); })
        ->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_0), QKeySequence(Qt::CTRL | Qt::Key_1)});
    add(tr("Fit in Window"), QKeySequence(Qt::CTRL | Qt::Key_9),
        [this] { m_view->fitToView(); });

    connect(m_model.get(), &ShotEditorModel::changed, this, [this] {
        syncTools();
        updateTitle();
        m_output->documentChanged(m_model->canUndo());
    });
    syncTools();
    updateTitle();
    if (!m_preferences.boolean(keys::editorKeyHelpSeen, false)) {
        m_view->showKeyHelp(keyHelpText(), [this] {
            m_preferences.setValue(keys::editorKeyHelpSeen, true);
        });
    }
    placeOnScreen(QGuiApplication::screenAt(QCursor::pos()));
    // Keys go to the shot first (tool letters, Space to pan, arrows to nudge),
    // not to whichever control of the bars comes first.
    m_canvas->setFocus(Qt::OtherFocusReason);
}

bool ShotEditorWindow::resizeTool(int steps)
{
    // The size the style bar shows (the selected mark's, else the tool's).
    const unsigned controls = styleControls(m_model->styledTool());
    ShotStyle style = m_model->shownStyle();
    QString shown;
    if (controls & lineWidthControl) {
        style.lineWidth = ShotStyle::normalizedLineWidth(std::round(style.lineWidth) + steps);
        shown = tr("Width %1 pt").arg(style.lineWidth);
    } else if (controls & arrowSizeControl) {
        const int preset = std::clamp(int(nearestArrowSizePreset(style.lineWidth)) + steps, 0,
                                      int(enumCount<ArrowSizePreset>()) - 1);
        style.lineWidth = arrowWidth(ArrowSizePreset(preset));
        shown = tr("Width %1 pt").arg(style.lineWidth);
    } else if (controls & fontSizeControl) {
        style.fontSize = ShotStyle::normalizedFontSize(std::round(style.fontSize) + 2 * steps);
        shown = tr("Size %1 pt").arg(style.fontSize);
    } else if (controls & strengthControl) {
        style.strength = ShotStyle::normalizedStrength(std::round(style.strength) + steps);
        shown = tr("Strength %1").arg(style.strength);
    } else {
        return false;
    }
    if (steps != 0) {
        m_model->applyStyle(style);
        showNotice(shown);
    }
    return true;
}

void ShotEditorWindow::placeOnScreen(QScreen* screen)
{
    if (!screen) {
        screen = QGuiApplication::primaryScreen();
    }
    if (!screen) {
        return;
    }
    const QRect available = screen->availableGeometry();
    // The window the shot needs at 100 %: the view's room for it plus the bars.
    ensurePolished();
    const QSize bars = sizeHint() - m_view->sizeHint();
    const QSize whole = (m_view->sizeHint() + bars).expandedTo(minimumSizeHint());
    const QSize most(available.width() * 9 / 10, available.height() * 9 / 10);
    const bool fits = whole.width() <= most.width() && whole.height() <= most.height();
    const QSize size = fits ? whole.expandedTo(QSize(minimumWidth(), 360)) : most;
    resize(size);
    // Frame decorations are the window manager's: centre the inside.
    move(available.center() - QPoint(size.width() / 2, size.height() / 2));
    const double fitAll = m_view->fitZoom(size - bars);
    const double width = m_view->fitWidthZoom(size - bars);
    if (fits) {
        m_canvas->setZoom(1);
    } else if (fitAll < width / 2) {
        // A tall shot (a scrolled page) shown whole would be unreadable: at
        // the window's width instead, from its top.
        m_canvas->setZoom(width);
    } else {
        m_canvas->setFitZoom(fitAll);
    }
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
    showNotice(tr("%1 copied").arg(name));
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
    m_editedTextOrigin = content.rect.normalized().topLeft();
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
            showNotice(tr("A text holds at most %L1 characters.").arg(TextContent::maximumLength));
            return;
        }
        // The box widens with its longest line up to the shot's right edge
        // (a one-line caption stays one line), and only then wraps.
        const QFontMetricsF metrics(editor->font());
        double longest = 0;
        for (const QString& line : editor->toPlainText().split(u'\n')) {
            longest = std::max(longest, metrics.horizontalAdvance(line));
        }
        const QRectF box = m_canvas->toWidget(QRectF(m_editedTextOrigin, QSizeF()));
        const double room = m_canvas->toWidget(m_model->document().visibleRect()).right() - box.x();
        const double wanted = std::min(std::ceil(longest + metrics.averageCharWidth() * 2), room);
        if (wanted > editor->width()) {
            editor->resize(int(wanted), editor->height());
        }
        const double height = editor->document()->size().height() + 4;
        editor->resize(editor->width(), std::max(editor->height(), int(std::ceil(height))));
        m_model->setEditedText(editor->toPlainText(), height / zoom, editor->width() / zoom);
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
        this, tr("Add Image"), QString(), tr("Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)"));
    if (!file.isEmpty()) {
        addImageFile(file, std::nullopt);
    }
}

QPointF ShotEditorWindow::viewCentre() const
{
    const QRect shown = m_view->viewport()->rect();
    const QPointF centre = m_canvas->mapFrom(m_view->viewport(), shown.center());
    const QRectF visible = m_model->document().visibleRect();
    // The middle of what is in view, inside the shot.
    const QPointF point = m_canvas->toDocument(centre);
    return {std::clamp(point.x(), visible.left(), visible.right()),
            std::clamp(point.y(), visible.top(), visible.bottom())};
}

void ShotEditorWindow::addImage(const QImage& image, std::optional<QPointF> at)
{
    // Dropped images land where they were dropped; others in the middle of
    // the view. Either way centred there, on top of the other layers.
    const QPointF centre = at.value_or(viewCentre());
    const QSizeF size = QSizeF(image.size()) / m_model->exportScale();
    reportAddProblem(m_model->addImageLayer(
        image, centre - QPointF(size.width() / 2, size.height() / 2)));
}

void ShotEditorWindow::addImageFile(const QString& file, std::optional<QPointF> at)
{
    QString problem;
    try {
        addImage(ShotImageFile::read(file), at);
    } catch (const Error& error) {
        problem = error.message();
    }
    reportAddProblem(problem);
}

void ShotEditorWindow::reportAddProblem(const QString& problem)
{
    if (!problem.isEmpty()) {
        qCWarning(lcApp, "Image not added: %s", qPrintable(problem));
        QMessageBox::warning(this, tr("Could Not Add Image"), problem);
    }
}

void ShotEditorWindow::withReadText(std::function<void()> use)
{
    if (m_textLayer->state() != ShotTextLayer::State::read &&
        m_textLayer->state() != ShotTextLayer::State::failed) {
        showNotice(tr("Reading the text\u2026"));
    }
    m_textLayer->whenRead([this, use = std::move(use)] {
        if (m_textLayer->state() == ShotTextLayer::State::failed) {
            showNotice(m_textLayer->error());
            return;
        }
        use();
    });
}

void ShotEditorWindow::copyText()
{
    withReadText([this] {
        const bool chosen = m_model->activeTool() == ShotToolKind::selectText &&
                            m_textLayer->selectedWordCount() > 0;
        const QString text = chosen ? m_textLayer->selectedText() : m_textLayer->text().text();
        if (text.trimmed().isEmpty()) {
            showNotice(tr("No text found in this shot"));
            return;
        }
        auto item = std::make_unique<QMimeData>();
        item->setText(text);
        ShotClipboard::shared().write(std::move(item));
        showNotice(tr("Copied %n word(s)", nullptr,
                      chosen ? m_textLayer->selectedWordCount() : m_textLayer->text().wordCount()));
    });
}

void ShotEditorWindow::hideSensitiveText()
{
    if (!m_model->isIdle()) {
        return; // a crop, a text or a drag under way
    }
    withReadText([this] {
        const QList<SensitiveFind> finds = findSensitiveText(m_textLayer->text());
        if (finds.isEmpty()) {
            showNotice(tr("No sensitive text found"));
            return;
        }
        const std::optional<QList<int>> ticked = chooseSensitiveText(this, finds);
        if (!ticked || ticked->isEmpty() || !m_model->isIdle()) {
            return;
        }
        // Every box a redaction, all in one step of the history.
        ShotDocument next = m_model->document();
        const ShotStyle style = m_model->style(ShotToolKind::blur);
        for (const int index : *ticked) {
            for (const QRect& box : finds[index].boxes) {
                // A pixel more on each side: anti-aliased edges of the letters too.
                const QRectF rect = m_textLayer->toDocument(box.adjusted(-1, -1, 2, 2));
                next.annotations.append(Annotation{QUuid::createUuid(), RedactAnnotation{rect}, style});
            }
        }
        m_model->apply(next);
        showNotice(tr("%n item(s) hidden", nullptr, int(ticked->size())));
    });
}

void ShotEditorWindow::copy()
{
    if (m_model->activeTool() == ShotToolKind::selectText && m_textLayer->selectedWordCount() > 0) {
        copyText(); // the chosen words
        return;
    }
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
        showNotice(tr("Select annotations to cut them"));
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
        // An image from elsewhere becomes a new layer in the middle of the view.
        addImage(qvariant_cast<QImage>(mime->imageData()), std::nullopt);
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
    const QPointF at =
        m_canvas->toDocument(m_canvas->mapFrom(this, event->position().toPoint()));
    if (event->mimeData()->hasImage()) {
        addImage(qvariant_cast<QImage>(event->mimeData()->imageData()), at);
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
        // The first Escape lets go of the selection, the next one closes
        // (asking first when there are unsaved edits).
        if (!m_model->selection().isEmpty()) {
            m_model->select({}, true);
            return;
        }
        close();
        return;
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

void ShotEditorWindow::pinToScreen()
{
    const ShotDocument& document = m_model->document();
    try {
        emit pinRequested(document, m_renderer.render(document, m_model->exportScale()));
    } catch (const Error& error) {
        showNotice(error.message());
    }
}

bool ShotEditorWindow::isPinned() const
{
    return m_output->isPinned();
}

QString ShotEditorWindow::keyHelpText()
{
    const auto row = [](const QString& keys, const QString& does) {
        return QStringLiteral("<tr><td style='color:#8cbeff; padding-right:12px'>%1</td>"
                              "<td>%2</td></tr>")
            .arg(keys.toHtmlEscaped(), does.toHtmlEscaped());
    };
    QString tools;
    for (const ShotToolKind tool : allCases<ShotToolKind>()) {
        tools += row(QString(toolShortcut(tool)), toolTitle(tool));
    }
    const QString commands =
        row(tr("Wheel"), tr("Size of the tool")) +
        row(tr("Space+Drag"), tr("Move around the shot")) +
        row(tr("Arrows"), tr("Move the selection")) +
        row(tr("Ctrl+Z, Ctrl+Shift+Z"), tr("Undo, Redo")) + row(tr("Ctrl+C"), tr("Copy the shot")) +
        row(tr("Ctrl+Shift+C"), tr("Copy the text")) +
        row(tr("Ctrl+S"), tr("Save the shot")) + row(tr("Ctrl+Shift+S"), tr("Save As")) +
        row(tr("Ctrl+1, Ctrl+9"), tr("Actual size, Fit")) +
        row(tr("Esc"), tr("Deselect, then close"));
    return QStringLiteral("<b>%1</b><table><tr><td valign='top'><table>%2</table></td>"
                          "<td width='18'></td><td valign='top'><table>%3</table></td></tr></table>"
                          "<p style='color:#aaaaaa'>%4</p>")
        .arg(tr("Keys"), tools, commands, tr("Click here to hide this for good"));
}

void ShotEditorWindow::showNotice(const QString& text)
{
    m_lastNotice = text;
    m_view->showNotice(text); // floats over the view: the canvas keeps its size
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
        QMessageBox box(QMessageBox::Question, tr("Discard this screenshot?"),
                        tr("Your changes to this screenshot have not been copied or "
                                       "saved."),
                        QMessageBox::NoButton, this);
        QPushButton* save = box.addButton(tr("Save"), QMessageBox::AcceptRole);
        QPushButton* discard = box.addButton(tr("Discard"), QMessageBox::DestructiveRole);
        box.addButton(QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Cancel);
        box.exec();
        if (box.clickedButton() == save) {
            // Saved where quick saves go; the editor closes once it is
            // written (a failure says why and keeps it open).
            m_closeWhenIdle = true;
            m_output->quickSave(Qt::NoModifier);
            event->ignore();
            return;
        }
        if (box.clickedButton() != discard) {
            event->ignore();
            return;
        }
    }
    m_output->editorClosing();
    event->accept();
}

} // namespace nubo
