// The pages of the settings window, in the order of its sidebar. A new page
// is a file defining make<Name>SettingsPage and one line here.

#include "settings/ShotSettingsPage.h"

namespace nubo {

#define NUBO_SETTINGS_PAGES(PAGE)                                                                  \
    PAGE(General)                                                                                  \
    PAGE(Shortcuts)                                                                                \
    PAGE(Output)                                                                                   \
    PAGE(Recording)                                                                                \
    PAGE(Editor)                                                                                   \
    PAGE(Uploads)                                                                                  \
    PAGE(Permissions)                                                                              \
    PAGE(Backup)

#define NUBO_DECLARE_PAGE(Name)                                                                    \
    ShotSettingsPage* make##Name##SettingsPage(const ShotSettingsContext&, QWidget*);
NUBO_SETTINGS_PAGES(NUBO_DECLARE_PAGE)

const QList<ShotSettingsPageMaker>& settingsPages()
{
#define NUBO_LIST_PAGE(Name) &make##Name##SettingsPage,
    static const QList<ShotSettingsPageMaker> pages{NUBO_SETTINGS_PAGES(NUBO_LIST_PAGE)};
    return pages;
}

} // namespace nubo
