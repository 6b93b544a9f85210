#include "recognition/TextRecognition.h"

#include "core/Error.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>

#include <tesseract/capi.h>

#include <QScopeGuard>

#include <algorithm>
#include <memory>
#include <mutex>

namespace nubo {

namespace {

// Where Debian's tesseract-ocr-* packages put the trained data.
QString dataFolder()
{
    if (const QByteArray own = qgetenv("TESSDATA_PREFIX"); !own.isEmpty()) {
        return QString::fromLocal8Bit(own);
    }
    for (const char* folder : {"/usr/share/tesseract-ocr/5/tessdata", "/usr/share/tesseract-ocr/4.00/tessdata",
                               "/usr/share/tessdata"}) {
        if (QDir(QString::fromLatin1(folder)).exists()) {
            return QString::fromLatin1(folder);
        }
    }
    return QStringLiteral("/usr/share/tesseract-ocr/5/tessdata");
}

// Tesseract's three-letter name for a desktop language.
QString tesseractName(QLocale::Language language, QLocale::Script script)
{
    switch (language) {
    case QLocale::German: return QStringLiteral("deu");
    case QLocale::French: return QStringLiteral("fra");
    case QLocale::Spanish: return QStringLiteral("spa");
    case QLocale::Portuguese: return QStringLiteral("por");
    case QLocale::Italian: return QStringLiteral("ita");
    case QLocale::Dutch: return QStringLiteral("nld");
    case QLocale::Polish: return QStringLiteral("pol");
    case QLocale::Russian: return QStringLiteral("rus");
    case QLocale::Japanese: return QStringLiteral("jpn");
    case QLocale::Korean: return QStringLiteral("kor");
    case QLocale::Chinese:
        return script == QLocale::TraditionalChineseScript ? QStringLiteral("chi_tra")
                                                            : QStringLiteral("chi_sim");
    default: return QStringLiteral("eng");
    }
}

// A box of the engine's picture in the original picture's pixels.
QRect unscaled(int left, int top, int right, int bottom, double scale)
{
    return QRect(QPoint(int(left / scale), int(top / scale)),
                 QPoint(int((right - 1) / scale), int((bottom - 1) / scale)));
}

int median(QList<int> values)
{
    if (values.isEmpty()) {
        return 0;
    }
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

// The usual height of a line of text in a grey picture with dark text: the
// median run of rows holding ink between rows holding none; 0 when there is
// no text-like run.
int typicalLineHeight(const QImage& grey)
{
    QList<int> runs;
    int run = 0;
    for (int y = 0; y < grey.height(); ++y) {
        const uchar* row = grey.constScanLine(y);
        bool ink = false;
        for (int x = 0; x < grey.width() && !ink; x += 2) {
            ink = row[x] < 110;
        }
        if (ink) {
            ++run;
        } else {
            if (run >= 5 && run <= 80) {
                runs << run;
            }
            run = 0;
        }
    }
    return median(runs);
}

// The engine kept between recognitions, and the languages it reads.
struct Engine {
    std::mutex lock;
    TessBaseAPI* api = nullptr;
    QByteArray languages;
    QByteArray data;

    void release()
    {
        if (api) {
            TessBaseAPIDelete(api);
            api = nullptr;
        }
        languages.clear();
    }
};

// Never destroyed: Tesseract's own caches may be gone by then. The programs
// release it before they end (releaseRecognitionEngine).
Engine& theEngine()
{
    static Engine* const engine = new Engine;
    return *engine;
}

} // namespace

void releaseRecognitionEngine()
{
    Engine& engine = theEngine();
    const std::lock_guard hold(engine.lock);
    engine.release();
}

QString RecognizedText::text() const
{
    if (lines.isEmpty()) {
        return {};
    }
    QList<int> heights;
    int left = lines.first().box.left();
    qint64 characters = 0, widths = 0;
    for (const RecognizedLine& line : lines) {
        heights << line.box.height();
        left = std::min(left, line.box.left());
        for (const RecognizedWord& word : line.words) {
            characters += word.text.size();
            widths += word.box.width();
        }
    }
    const int lineHeight = std::max(1, median(heights));
    // The advance of a character: from a word's start to the next one's over
    // its letters and one space. The words' boxes alone hold only the ink,
    // narrower than the advances, which would indent code too far.
    qint64 advances = 0, advanced = 0;
    for (const RecognizedLine& line : lines) {
        for (qsizetype w = 1; w < line.words.size(); ++w) {
            const RecognizedWord& before = line.words[w - 1];
            if (line.words[w].box.left() - before.box.right() < lineHeight) { // one space
                advances += line.words[w].box.left() - before.box.left();
                advanced += before.text.size() + 1;
            }
        }
    }
    const double characterWidth = advanced >= 8 ? double(advances) / double(advanced)
                                  : characters > 0 ? double(widths) / double(characters)
                                                   : lineHeight / 2.0;
    QString text;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const RecognizedLine& line = lines[i];
        if (i > 0) {
            text += u'\n';
            // A gap of more than half a line between two lines is a paragraph's.
            const int gap = line.box.top() - lines[i - 1].box.bottom();
            if (gap > lineHeight * 0.9) {
                text += u'\n';
            }
        }
        const int indent = int((line.box.left() - left) / characterWidth + 0.5);
        text += QString(std::max(0, indent), u' ');
        for (qsizetype w = 0; w < line.words.size(); ++w) {
            if (w > 0) {
                // Wide gaps inside a line (columns, aligned code) stay wide.
                const int space = line.words[w].box.left() - line.words[w - 1].box.right();
                text += QString(std::max(1, int(space / characterWidth + 0.3)), u' ');
            }
            text += line.words[w].text;
        }
    }
    return text;
}

int RecognizedText::wordCount() const
{
    int count = 0;
    for (const RecognizedLine& line : lines) {
        count += int(line.words.size());
    }
    return count;
}

QStringList installedRecognitionLanguages()
{
    QStringList languages;
    for (const QString& file : QDir(dataFolder()).entryList({QStringLiteral("*.traineddata")}, QDir::Files)) {
        const QString name = file.chopped(int(qstrlen(".traineddata")));
        if (name != QLatin1String("osd") && name != QLatin1String("equ")) {
            languages << name;
        }
    }
    languages.sort();
    return languages;
}

QStringList defaultRecognitionLanguages()
{
    const QLocale locale;
    const QString own = tesseractName(locale.language(), locale.script());
    const QStringList installed = installedRecognitionLanguages();
    QStringList chosen;
    if (installed.contains(own)) {
        chosen << own;
    }
    if (own != QLatin1String("eng") && installed.contains(QStringLiteral("eng"))) {
        chosen << QStringLiteral("eng"); // screens mix in English words
    }
    return chosen.isEmpty() ? QStringList{QStringLiteral("eng")} : chosen;
}

QImage prepareForRecognition(const QImage& picture, double scale)
{
    QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    grey.setDevicePixelRatio(1);
    // Mostly dark: light text on a dark ground, which the engine reads worse.
    qint64 sum = 0;
    for (int y = 0; y < grey.height(); y += 4) {
        const uchar* row = grey.constScanLine(y);
        for (int x = 0; x < grey.width(); x += 4) {
            sum += row[x];
        }
    }
    const qint64 samples = qint64((grey.height() + 3) / 4) * ((grey.width() + 3) / 4);
    if (samples > 0 && sum / samples < 128) {
        grey.invertPixels();
    }
    if (scale > 1) {
        grey = grey.scaled((QSizeF(grey.size()) * scale).toSize(), Qt::IgnoreAspectRatio,
                           Qt::SmoothTransformation);
    }
    return grey;
}

RecognizedText recognizeText(const QImage& picture, const QStringList& languages)
{
    const QStringList installed = installedRecognitionLanguages();
    for (const QString& language : languages) {
        if (!installed.contains(language)) {
            throw Error(QCoreApplication::translate(
                            "nubo::TextRecognition",
                            "Text in “%1” cannot be recognised: its data is not installed "
                            "(install the package tesseract-ocr-%2).")
                            .arg(language, QString(language).replace(u'_', u'-')));
        }
    }
    if (picture.isNull()) {
        return {};
    }
    // The engine reads lines of some 20 pixels and more well; smaller text is
    // scaled up to that, larger text is left as it is (scaling a whole page
    // costs time in proportion).
    const int lineHeight = typicalLineHeight(prepareForRecognition(picture, 1));
    const double scale = lineHeight > 0 && lineHeight < 18 ? std::min(2.0, 20.0 / lineHeight) : 1.0;
    const QImage grey = prepareForRecognition(picture, scale);

    // Tesseract's C interface: the programs that recognise text load the
    // library on its first call (first-use/TesseractOnFirstUse). Its models
    // take a tenth of a second to load: the engine is kept for the next
    // picture in the same languages, one recognition at a time.
    Engine& engine = theEngine();
    const std::lock_guard hold(engine.lock);
    const QByteArray data = dataFolder().toLocal8Bit();
    const QByteArray wanted = (languages.isEmpty() ? QStringList{QStringLiteral("eng")} : languages)
                                  .join(u'+')
                                  .toLatin1();
    if (!engine.api || engine.languages != wanted || engine.data != data) {
        engine.release();
        engine.api = TessBaseAPICreate();
        if (TessBaseAPIInit2(engine.api, data.constData(), wanted.constData(), tesseract::OEM_LSTM_ONLY) != 0) {
            engine.release();
            throw Error(QCoreApplication::translate("nubo::TextRecognition",
                                                    "The text recognition engine could not start with “%1”.")
                            .arg(QString::fromLatin1(wanted)));
        }
        engine.languages = wanted;
        engine.data = data;
    }
    TessBaseAPI* const api = engine.api;
    // The picture and its results go when done; the models stay.
    const auto clear = qScopeGuard([api] { TessBaseAPIClear(api); });
    // A whole screen holds columns, labels and panels: the engine finds the
    // blocks itself. A framed selection is mostly one block (a paragraph, a
    // piece of code): read as one, its short lines (a lone closing brace)
    // are not taken for noise. Spaces between words stay as they were seen.
    const bool selection = picture.width() <= 1200 * picture.devicePixelRatio() &&
                           picture.height() <= 800 * picture.devicePixelRatio();
    TessBaseAPISetPageSegMode(api, selection ? tesseract::PSM_SINGLE_BLOCK : tesseract::PSM_AUTO);
    TessBaseAPISetVariable(api, "preserve_interword_spaces", "1");
    TessBaseAPISetImage(api, grey.constBits(), grey.width(), grey.height(), 1, int(grey.bytesPerLine()));
    TessBaseAPISetSourceResolution(api, int(96 * scale));
    if (TessBaseAPIRecognize(api, nullptr) != 0) {
        throw Error(QCoreApplication::translate("nubo::TextRecognition",
                                                "The text could not be recognised."));
    }
    RecognizedText result;
    const std::unique_ptr<TessResultIterator, void (*)(TessResultIterator*)> it(
        TessBaseAPIGetIterator(api), TessResultIteratorDelete);
    if (!it) {
        return result;
    }
    const TessPageIterator* page = TessResultIteratorGetPageIteratorConst(it.get());
    RecognizedLine line;
    do {
        int l = 0, t = 0, r = 0, b = 0;
        if (TessPageIteratorIsAtBeginningOf(page, tesseract::RIL_TEXTLINE)) {
            line = {};
            TessPageIteratorBoundingBox(page, tesseract::RIL_TEXTLINE, &l, &t, &r, &b);
            line.box = unscaled(l, t, r, b, scale);
        }
        if (char* word = TessResultIteratorGetUTF8Text(it.get(), tesseract::RIL_WORD)) {
            const QString text = QString::fromUtf8(word).trimmed();
            TessDeleteText(word);
            if (!text.isEmpty()) {
                TessPageIteratorBoundingBox(page, tesseract::RIL_WORD, &l, &t, &r, &b);
                line.words.append({text, unscaled(l, t, r, b, scale),
                                   TessResultIteratorConfidence(it.get(), tesseract::RIL_WORD)});
            }
        }
        if (TessPageIteratorIsAtFinalElement(page, tesseract::RIL_TEXTLINE, tesseract::RIL_WORD) && !line.words.isEmpty()) {
            result.lines.append(line);
            line = {};
        }
    } while (TessResultIteratorNext(it.get(), tesseract::RIL_WORD));
    return result;
}

} // namespace nubo
