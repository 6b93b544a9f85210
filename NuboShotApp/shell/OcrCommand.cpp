#include "shell/OcrCommand.h"

#include "core/Error.h"
#include "document/ShotImageFile.h"
#include "recognition/CodeReading.h"
#include "recognition/TextRecognition.h"
#include "shell/CommandLine.h"

#include <cstdio>

namespace nubo::cli {

namespace {

const char* const ocrHelp = R"(Usage: nuboshot ocr FILE [--lang LANG[+LANG...]]
       nuboshot ocr --codes FILE
       nuboshot ocr --list-languages

Prints the text recognised in an image, with its layout: a line for each
line, an empty line between paragraphs, code and lists indented as they were.
Light text on a dark ground is read as well as dark on light. Recognition
runs here, on this computer.

  --lang LANG            the languages of the text, as Tesseract names them
                         (eng, deu, fra, chi_sim…; several joined with +);
                         by default the desktop's language where its data is
                         installed (package tesseract-ocr-LANG), and English
  --codes                the QR codes and barcodes instead, one line each:
                         the format, a tab and the text
  --list-languages       the languages whose data is installed
)";

} // namespace

int runOcrCommand(const QStringList& arguments)
{
    const QString help = QStringLiteral("ocr");
    QString file;
    QStringList languages;
    bool codes = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (argument == QLatin1String("-h") || argument == QLatin1String("--help")) {
            std::fputs(ocrHelp, stdout);
            return success;
        }
        if (argument == QLatin1String("--list-languages")) {
            for (const QString& language : installedRecognitionLanguages()) {
                print(language);
            }
            return success;
        }
        if (argument == QLatin1String("--codes")) {
            codes = true;
        } else if (argument == QLatin1String("--lang") || argument.startsWith(QLatin1String("--lang="))) {
            QString value;
            if (argument.contains(u'=')) {
                value = argument.section(u'=', 1);
            } else if (i + 1 < arguments.size()) {
                value = arguments[++i];
            }
            if (value.isEmpty()) {
                return usage(QStringLiteral("--lang needs a language such as eng or deu+eng"), help);
            }
            languages << value.split(u'+', Qt::SkipEmptyParts);
        } else if (argument.startsWith(u'-') && argument.size() > 1) {
            return usage(QStringLiteral("unknown option \u201c%1\u201d").arg(argument), help);
        } else if (file.isEmpty()) {
            file = argument;
        } else {
            return usage(QStringLiteral("ocr reads one image"), help);
        }
    }
    if (file.isEmpty()) {
        return usage(QStringLiteral("ocr needs an image"), help);
    }
    try {
        const QImage image = ShotImageFile::read(file);
        if (codes) {
            for (const ReadCode& code : readCodes(image)) {
                print(code.format + u'\t' + code.text);
            }
            return success;
        }
        const RecognizedText text =
            recognizeText(image, languages.isEmpty() ? defaultRecognitionLanguages() : languages);
        releaseRecognitionEngine(); // one picture a run
        const QString all = text.text();
        if (!all.isEmpty()) {
            print(all);
        }
        return success;
    } catch (const Error& error) {
        return failWith(error);
    }
}

} // namespace nubo::cli
