#include "text/ShotTextLayer.h"

#include "editor/ShotCanvas.h"
#include "editor/ShotEditorModel.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>
#include <QUrl>

#include <algorithm>

namespace nubo {

ShotTextLayer::ShotTextLayer(ShotCanvas& canvas, ShotEditorModel& model, ShotPreferences& preferences)
    : QWidget(&canvas), m_canvas(canvas), m_model(model), m_preferences(preferences)
{
    setObjectName(QStringLiteral("textLayer"));
    setGeometry(canvas.rect());
    canvas.installEventFilter(this);
    connect(&canvas, &ShotCanvas::zoomChanged, this, [this] {
        update();
        placeChips();
    });
    connect(&canvas, &ShotCanvas::contentSizeChanged, this, [this] {
        update();
        placeChips();
    });
    connect(&model, &ShotEditorModel::changed, this, &ShotTextLayer::followTool);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    followTool();
    // Codes are looked for in every shot as it opens: a few milliseconds,
    // off the main thread.
    const QImage shot = picture();
    if (!shot.isNull()) {
        readShot(shot, {}, false, this,
                 [this](const ShotReading& reading) { codesFound(reading.codes); });
    }
}

QImage ShotTextLayer::picture() const
{
    const ShotDocument& document = m_model.document();
    if (document.layers.isEmpty() || document.layers.first().frame.width() <= 0) {
        return {};
    }
    const ImageLayer& layer = document.layers.first();
    QImage image = layer.image;
    image.setDevicePixelRatio(double(image.width()) / layer.frame.width());
    return image;
}

QRectF ShotTextLayer::toDocument(const QRect& pixels) const
{
    const ShotDocument& document = m_model.document();
    if (document.layers.isEmpty() || document.layers.first().image.isNull()) {
        return {};
    }
    const ImageLayer& layer = document.layers.first();
    const double sx = layer.frame.width() / layer.image.width();
    const double sy = layer.frame.height() / layer.image.height();
    return QRectF(layer.frame.x() + pixels.x() * sx, layer.frame.y() + pixels.y() * sy,
                  pixels.width() * sx, pixels.height() * sy);
}

void ShotTextLayer::whenRead(std::function<void()> then)
{
    if (m_state == State::read || m_state == State::failed) {
        then();
        return;
    }
    m_waiting.append(std::move(then));
    if (m_state == State::reading) {
        return;
    }
    m_state = State::reading;
    emit stateChanged();
    setCursor(Qt::BusyCursor);
    readShot(picture(), recognitionLanguages(m_preferences), true, this,
             [this](const ShotReading& reading) {
                 m_reading.text = reading.text;
                 m_reading.error = reading.error;
                 if (!m_codesRead) {
                     codesFound(reading.codes);
                 }
                 dropWordsInCodes();
                 m_state = reading.error.isEmpty() ? State::read : State::failed;
                 setCursor(Qt::IBeamCursor);
                 update();
                 emit stateChanged();
                 for (const auto& then : std::exchange(m_waiting, {})) {
                     then();
                 }
             });
}

void ShotTextLayer::followTool()
{
    const bool active = m_model.activeTool() == ShotToolKind::selectText;
    if (active == m_active) {
        return;
    }
    m_active = active;
    setAttribute(Qt::WA_TransparentForMouseEvents, !active);
    if (active) {
        raise();
        for (const QPointer<QWidget>& chip : std::as_const(m_chips)) {
            if (chip) {
                chip->raise(); // the chips stay clickable over the words
            }
        }
        setCursor(m_state == State::reading ? Qt::BusyCursor : Qt::IBeamCursor);
        whenRead([this] {
            if (m_state == State::failed) {
                emit notice(m_reading.error);
            } else if (m_reading.text.lines.isEmpty()) {
                emit notice(tr("No text found in this shot"));
            }
        });
    } else if (!m_selected.isEmpty()) {
        clearSelection();
    }
    update();
}

QRectF ShotTextLayer::wordRect(const RecognizedWord& word) const
{
    return m_canvas.toWidget(toDocument(word.box)).adjusted(-1, -1, 1, 1);
}

std::optional<ShotTextLayer::WordIndex> ShotTextLayer::wordAt(QPointF point) const
{
    const QList<RecognizedLine>& lines = m_reading.text.lines;
    for (int l = 0; l < lines.size(); ++l) {
        for (int w = 0; w < lines[l].words.size(); ++w) {
            if (wordRect(lines[l].words[w]).adjusted(-2, -2, 2, 2).contains(point)) {
                return WordIndex{l, w};
            }
        }
    }
    return std::nullopt;
}

void ShotTextLayer::selectTouched(const QRectF& band)
{
    QSet<WordIndex> touched;
    const QList<RecognizedLine>& lines = m_reading.text.lines;
    for (int l = 0; l < lines.size(); ++l) {
        for (int w = 0; w < lines[l].words.size(); ++w) {
            if (wordRect(lines[l].words[w]).intersects(band)) {
                touched.insert({l, w});
            }
        }
    }
    if (touched != m_selected) {
        m_selected = touched;
        emit selectionChanged();
    }
}

void ShotTextLayer::clearSelection()
{
    if (!m_selected.isEmpty()) {
        m_selected.clear();
        update();
        emit selectionChanged();
    }
}

QString ShotTextLayer::selectedText() const
{
    RecognizedText chosen;
    const QList<RecognizedLine>& lines = m_reading.text.lines;
    for (int l = 0; l < lines.size(); ++l) {
        RecognizedLine line;
        for (int w = 0; w < lines[l].words.size(); ++w) {
            if (m_selected.contains({l, w})) {
                line.words.append(lines[l].words[w]);
                line.box |= lines[l].words[w].box;
            }
        }
        if (!line.words.isEmpty()) {
            chosen.lines.append(line);
        }
    }
    return chosen.text();
}

void ShotTextLayer::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_press = event->position();
    m_band = {};
    const std::optional<WordIndex> word = wordAt(event->position());
    m_selected.clear();
    if (word) {
        m_selected.insert(*word);
    }
    update();
    emit selectionChanged();
}

void ShotTextLayer::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_press) {
        return;
    }
    m_band = QRectF(*m_press, event->position()).normalized();
    selectTouched(m_band);
    update();
}

void ShotTextLayer::mouseReleaseEvent(QMouseEvent*)
{
    m_press.reset();
    m_band = {};
    update();
}

void ShotTextLayer::mouseDoubleClickEvent(QMouseEvent* event)
{
    const std::optional<WordIndex> word = wordAt(event->position());
    if (!word) {
        return;
    }
    m_selected.clear();
    for (int w = 0; w < m_reading.text.lines[word->first].words.size(); ++w) {
        m_selected.insert({word->first, w});
    }
    update();
    emit selectionChanged();
}

void ShotTextLayer::paintEvent(QPaintEvent*)
{
    if (!m_active) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor highlight = palette().color(QPalette::Highlight);
    QColor faint = highlight;
    faint.setAlpha(40);
    highlight.setAlpha(110);
    const QList<RecognizedLine>& lines = m_reading.text.lines;
    for (int l = 0; l < lines.size(); ++l) {
        for (int w = 0; w < lines[l].words.size(); ++w) {
            const bool chosen = m_selected.contains({l, w});
            painter.setPen(chosen ? Qt::NoPen : QPen(highlight, 1));
            painter.setBrush(chosen ? highlight : faint);
            painter.drawRoundedRect(wordRect(lines[l].words[w]), 2, 2);
        }
    }
    if (!m_band.isEmpty()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(m_band);
    }
}

bool ShotTextLayer::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_canvas && event->type() == QEvent::Resize) {
        setGeometry(m_canvas.rect());
        placeChips();
    }
    return QWidget::eventFilter(watched, event);
}

void ShotTextLayer::codesFound(const QList<ReadCode>& codes)
{
    m_codesRead = true;
    m_reading.codes = codes;
    for (const ReadCode& code : codes) {
        auto* chip = new QFrame(&m_canvas);
        chip->setObjectName(QStringLiteral("codeChip"));
        chip->setToolTip(code.text);
        chip->setAutoFillBackground(false);
        chip->setStyleSheet(QStringLiteral(
            "QFrame#codeChip { background: rgba(30, 30, 30, 215); border-radius: 6px; }"
            "QFrame#codeChip QLabel { color: white; }"
            "QFrame#codeChip QToolButton { color: white; padding: 2px 6px; border-radius: 4px; }"
            "QFrame#codeChip QToolButton:hover { background: rgba(255, 255, 255, 40); }"));
        auto* row = new QHBoxLayout(chip);
        row->setContentsMargins(8, 2, 2, 2);
        row->setSpacing(2);
        auto* label = new QLabel(chip);
        label->setText(label->fontMetrics().elidedText(code.text, Qt::ElideMiddle, 180));
        row->addWidget(label);
        auto* copy = new QToolButton(chip);
        copy->setObjectName(QStringLiteral("code.copy"));
        copy->setText(tr("Copy"));
        row->addWidget(copy);
        const QString text = code.text;
        connect(copy, &QToolButton::clicked, this, [this, text] {
            QApplication::clipboard()->setText(text);
            emit notice(tr("Code copied"));
        });
        if (code.isLink()) {
            auto* open = new QToolButton(chip);
            open->setObjectName(QStringLiteral("code.open"));
            open->setText(tr("Open Link"));
            row->addWidget(open);
            // Opened only by this click, never by itself.
            connect(open, &QToolButton::clicked, this, [this, text] {
                if (!QDesktopServices::openUrl(QUrl(text, QUrl::StrictMode))) {
                    emit notice(tr("No application opens this link"));
                }
            });
        }
        chip->setProperty("codeBounds", code.corners.boundingRect());
        chip->adjustSize();
        chip->show();
        m_chips.append(chip);
    }
    placeChips();
}

void ShotTextLayer::dropWordsInCodes()
{
    // A code's modules read as stray letters: they are no words.
    QList<RecognizedLine> lines;
    for (RecognizedLine line : std::as_const(m_reading.text.lines)) {
        line.words.removeIf([this](const RecognizedWord& word) {
            return std::any_of(m_reading.codes.begin(), m_reading.codes.end(), [&](const ReadCode& code) {
                const QRect inside = code.corners.boundingRect() & word.box;
                return inside.width() * inside.height() * 2 > word.box.width() * word.box.height();
            });
        });
        if (!line.words.isEmpty()) {
            line.box = {};
            for (const RecognizedWord& word : std::as_const(line.words)) {
                line.box |= word.box;
            }
            lines.append(line);
        }
    }
    m_reading.text.lines = lines;
}

void ShotTextLayer::placeChips()
{
    for (const QPointer<QWidget>& chip : std::as_const(m_chips)) {
        if (!chip) {
            continue;
        }
        const QRectF code = m_canvas.toWidget(toDocument(chip->property("codeBounds").toRect()));
        // Above the code where there is room, else over its top edge.
        QPoint at(int(code.left()), int(code.top()) - chip->height() - 4);
        if (at.y() < 0) {
            at.setY(int(code.top()) + 4);
        }
        at.setX(std::clamp(at.x(), 0, std::max(0, m_canvas.width() - chip->width())));
        chip->move(at);
        chip->raise();
    }
}

} // namespace nubo
