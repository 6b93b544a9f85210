// Another program using the shared upload store at the same time as the
// tests: `test-store-writer DB COUNT` records COUNT finished uploads;
// `test-store-writer DB crash` starts one, sends it, and dies before the
// answer, as a killed program would.
#include "core/Error.h"
#include "upload/UploadStore.h"

#include <QCoreApplication>
#include <QDateTime>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: test-store-writer DB COUNT|crash\n");
        return 2;
    }
    try {
        nubo::UploadStore store(QString::fromLocal8Bit(argv[1]));
        const QByteArray what = argv[2];
        if (what == "crash") {
            const QString id = store.beginUpload(nubo::ShotUploadDestination::filebin,
                                                 QStringLiteral("cut-short.png"), QStringLiteral("00"), 2);
            store.recordStep(id, nubo::UploadStore::Step::sending);
            store.recordStep(id, nubo::UploadStore::Step::sent);
            std::printf("%s\n", qPrintable(id));
            std::fflush(stdout);
            std::abort();
        }
        for (int i = 0; i < what.toInt(); ++i) {
            const QString name = QStringLiteral("shot-%1-%2.png").arg(QCoreApplication::applicationPid()).arg(i);
            const QString id = store.beginUpload(nubo::ShotUploadDestination::filebin, name,
                                                 QStringLiteral("ab"), 2);
            store.recordStep(id, nubo::UploadStore::Step::sending);
            store.recordFileUse({id, QStringLiteral("ab"), name, 2, nubo::ShotUploadDestination::filebin,
                                 QStringLiteral("bin"), name, QStringLiteral("http://x/bin/") + name,
                                 QDateTime::currentDateTimeUtc(), std::nullopt, std::nullopt});
        }
    } catch (const nubo::Error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
