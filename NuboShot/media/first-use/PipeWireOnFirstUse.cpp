// PipeWire's client library loaded the first time one of its functions is
// called (PipeWireOnFirstUse.S).

#include "OnFirstUse.h"

#include <mutex>

extern "C" void* nubo_pipewire_table[];

namespace {

constexpr const char* functions[] = {
#define NUBO_FUNCTION(name) #name,
#include "PipeWireFunctions.def"
#undef NUBO_FUNCTION
};

constexpr const char* libraries[] = {"libpipewire-0.3.so.0"};

} // namespace

extern "C" void nubo_pipewire_load()
{
    static std::once_flag once;
    std::call_once(once, [] {
        nubo::loadOnFirstUse(libraries, functions, nubo_pipewire_table, "libpipewire-0.3-0");
    });
}
