// Tesseract loaded the first time one of its functions is called
// (TesseractOnFirstUse.S).

#include "OnFirstUse.h"

#include <cstdlib>
#include <mutex>

extern "C" void* nubo_tesseract_table[];

namespace {

constexpr const char* functions[] = {
#define NUBO_FUNCTION(name) #name,
#include "TesseractFunctions.def"
#undef NUBO_FUNCTION
};

constexpr const char* libraries[] = {"libtesseract.so.5"};

} // namespace

extern "C" void nubo_tesseract_load()
{
    static std::once_flag once;
    std::call_once(once, [] {
        // OpenMP's thread limit is read when Qt Core loads it (through
        // libb2), before this: the front sets OMP_THREAD_LIMIT for the
        // programs it starts.
        nubo::loadOnFirstUse(libraries, functions, nubo_tesseract_table, "libtesseract5");
    });
}
