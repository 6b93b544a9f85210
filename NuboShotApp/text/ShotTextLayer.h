#pragma once

#include "text/ShotTextReading.h"

#include <QList>
#include <QPointer>
#include <QSet>
#include <QWidget>

#include <functional>
#include <optional>

namespace nubo {

class ShotCanvas;
class ShotEditorModel;
class ShotPreferences;

// What an editor reads in its shot, over its canvas: the codes (found as
// soon as the editor opens, each with a chip offering Copy and, for a web
// address, Open Link) and the text (read when first asked for). While the
// Select text tool is active it shows the words as boxes and takes the
// pointer: a click picks a word, a double click its line, a drag every word
// it touches. Main thread only.
class ShotTextLayer : public QWidget {
    Q_OBJECT
public:
    enum class State { unread, reading, read, failed };

    ShotTextLayer(ShotCanvas& canvas, ShotEditorModel& model, ShotPreferences& preferences);

    State state() const { return m_state; }
    const RecognizedText& text() const { return m_reading.text; }
    const QList<ReadCode>& codes() const { return m_reading.codes; }
    bool codesRead() const { return m_codesRead; }
    // Why the text could not be read (a missing language's package).
    const QString& error() const { return m_reading.error; }

    // Reads the text unless it is read or being read; `then` runs once it is
    // (at once when it is already), whether it could be read or not.
    void whenRead(std::function<void()> then);

    // The chosen words with their layout, empty without a choice.
    QString selectedText() const;
    int selectedWordCount() const { return int(m_selected.size()); }
    void clearSelection();

    // A rectangle of the shot's pixels in document points.
    QRectF toDocument(const QRect& pixels) const;
    // The picture that is read: the shot's bottom layer, at its pixels per point.
    QImage picture() const;

signals:
    // Something to tell the user in the editor ("Copied", a failure).
    void notice(const QString& text);
    void selectionChanged();
    void stateChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using WordIndex = std::pair<int, int>; // line, word
    void followTool();
    void placeChips();
    void codesFound(const QList<ReadCode>& codes);
    void dropWordsInCodes();
    QRectF wordRect(const RecognizedWord& word) const; // in this widget
    std::optional<WordIndex> wordAt(QPointF point) const;
    void selectTouched(const QRectF& band);

    ShotCanvas& m_canvas;
    ShotEditorModel& m_model;
    ShotPreferences& m_preferences;
    State m_state = State::unread;
    ShotReading m_reading;
    bool m_codesRead = false;
    bool m_active = false; // the Select text tool is
    QList<std::function<void()>> m_waiting;
    QSet<WordIndex> m_selected;
    QList<QPointer<QWidget>> m_chips;
    std::optional<QPointF> m_press;
    QRectF m_band;
};

} // namespace nubo
