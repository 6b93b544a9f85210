#include "shell/Translations.h"

#include "core/Logging.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace nubo {

void installTranslations()
{
    // Installed last is asked first: the language's own catalogue, then the
    // English plural forms for anything it lacks. Called again (the default
    // locale changed), it replaces what it installed before.
    static QTranslator english, ours, qt;
    for (QTranslator* installed : {&english, &ours, &qt}) {
        QCoreApplication::removeTranslator(installed);
    }
    if (english.load(QStringLiteral(":/i18n/nuboshot_en.qm"))) {
        QCoreApplication::installTranslator(&english);
    }
    const QLocale locale;
    if (ours.load(locale, QStringLiteral("nuboshot"), QStringLiteral("_"), QStringLiteral(":/i18n")) &&
        ours.language() != QLatin1String("en")) {
        QCoreApplication::installTranslator(&ours);
        qCDebug(lcApp) << "Translations:" << ours.language();
    }
    if (qt.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&qt);
    }
}

} // namespace nubo
