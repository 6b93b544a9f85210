#pragma once

namespace nubo {

// Installs the catalogues for the desktop's language (QLocale's system
// locale, which follows LANGUAGE, LC_MESSAGES and LANG): ours, built in, and
// Qt's own for its dialogs. English needs only its plural forms; a language
// without a catalogue shows English. Call once the application exists; call
// again after QLocale::setDefault to change the language.
void installTranslations();

} // namespace nubo
