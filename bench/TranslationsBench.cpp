// Loading the language's catalogues at start: ours from the program's
// resources and Qt's own for its dialogs, as installTranslations() does for
// each start of the tray, the editor and the review window.
#include "shell/Translations.h"

#include <QCoreApplication>
#include <QLocale>

#include <benchmark/benchmark.h>

namespace {

void BM_InstallTranslations(benchmark::State& state, const char* locale)
{
    QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
    for (auto _ : state) {
        nubo::installTranslations();
    }
    if (QCoreApplication::translate("nubo::ShotStatusMenu", "Quit Nubo Shot") ==
        QLatin1String("Quit Nubo Shot")) {
        state.SkipWithError("no catalogue was installed");
    }
}
BENCHMARK_CAPTURE(BM_InstallTranslations, German, "de")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_InstallTranslations, Chinese, "zh_CN")->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
