#include "text/ShotTextReading.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "core/Settings.h"

#include <QElapsedTimer>
#include <QFutureWatcher>
#include <QPointer>
#include <QTimer>
#include <QtConcurrent>

namespace nubo {

QStringList recognitionLanguages(const ShotPreferences& preferences)
{
    const QStringList installed = installedRecognitionLanguages();
    QStringList chosen;
    for (const QString& language :
         preferences.string(keys::recognitionLanguages).value_or(QString()).split(u'+', Qt::SkipEmptyParts)) {
        if (installed.contains(language) && !chosen.contains(language)) {
            chosen << language;
        }
    }
    return chosen.isEmpty() ? defaultRecognitionLanguages() : chosen;
}

void setRecognitionLanguages(ShotPreferences& preferences, const QStringList& languages)
{
    if (languages.isEmpty()) {
        preferences.remove(keys::recognitionLanguages);
    } else {
        preferences.setValue(keys::recognitionLanguages, languages.join(u'+'));
    }
}

namespace {

// The recognition engine's models stay loaded for the next reading, and
// are freed when none came for two minutes (or when the program ends).
void releaseEngineWhenIdle()
{
    static QTimer* const idle = [] {
        auto* timer = new QTimer(QCoreApplication::instance());
        timer->setSingleShot(true);
        timer->setInterval(std::chrono::minutes(2));
        QObject::connect(timer, &QTimer::timeout, [] { (void)QtConcurrent::run(releaseRecognitionEngine); });
        QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit,
                         [] { releaseRecognitionEngine(); });
        return timer;
    }();
    idle->start();
}

} // namespace

void readShot(const QImage& picture, const QStringList& languages, bool withText, QObject* context,
              std::function<void(const ShotReading&)> done)
{
    auto* watcher = new QFutureWatcher<ShotReading>();
    QObject::connect(watcher, &QFutureWatcherBase::finished, context,
                     [watcher, withText, done = std::move(done)] {
                         watcher->deleteLater();
                         if (withText) {
                             releaseEngineWhenIdle();
                         }
                         done(watcher->result());
                     });
    // Without its context the result is dropped, and the watcher with it.
    QObject::connect(context, &QObject::destroyed, watcher, &QObject::deleteLater);
    watcher->setFuture(QtConcurrent::run([picture, languages, withText] {
        ShotReading reading;
        QElapsedTimer clock;
        clock.start();
        reading.codes = readCodes(picture);
        const qint64 codes = clock.elapsed();
        if (withText) {
            try {
                reading.text = recognizeText(picture, languages);
            } catch (const Error& error) {
                reading.error = error.message();
            }
        }
        qCInfo(lcApp, "Read %dx%d: %lld codes in %lld ms, %d words in %lld ms", picture.width(),
               picture.height(), static_cast<long long>(reading.codes.size()),
               static_cast<long long>(codes), reading.text.wordCount(),
               static_cast<long long>(clock.elapsed() - codes));
        return reading;
    }));
}

} // namespace nubo
