#include "codec/HeifLibrary.h"

#include <QStringList>

#include <cstring>
#include <dlfcn.h>

namespace nubo {

namespace {

HeifLibrary load()
{
    HeifLibrary heif;
    // libheif 1.x keeps its soname across its releases.
    constexpr const char* name = "libheif.so.1";
    void* library = ::dlopen(name, RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        heif.problem = QStringLiteral("HEIC images need %1, which could not be loaded (%2); "
                                      "install the package libheif1")
                           .arg(QLatin1String(name), QString::fromLocal8Bit(::dlerror()));
        return heif;
    }
    QStringList missing;
#define NUBO_HEIF_RESOLVE(function)                                                              \
    heif.function = reinterpret_cast<decltype(heif.function)>(::dlsym(library, #function));     \
    if (!heif.function) {                                                                        \
        missing << QStringLiteral(#function);                                                    \
    }
    NUBO_HEIF_FUNCTIONS(NUBO_HEIF_RESOLVE)
#undef NUBO_HEIF_RESOLVE
    if (!missing.isEmpty()) {
        heif = HeifLibrary();
        heif.problem = QStringLiteral("HEIC images need a newer libheif: %1 lacks %2")
                           .arg(QLatin1String(name), missing.join(QStringLiteral(", ")));
    }
    return heif;
}

} // namespace

const HeifLibrary& HeifLibrary::instance()
{
    static const HeifLibrary library = load();
    return library;
}

bool HeifLibrary::mayBeHeif(const char* head, qsizetype size)
{
    return size >= 12 && std::memcmp(head + 4, "ftyp", 4) == 0;
}

} // namespace nubo
