// PulseAudio's client libraries loaded the first time one of their functions
// is called (PulseOnFirstUse.S).

#include "OnFirstUse.h"

#include <mutex>

extern "C" void* nubo_pulse_table[];

namespace {

constexpr const char* functions[] = {
#define NUBO_FUNCTION(name) #name,
#include "PulseFunctions.def"
#undef NUBO_FUNCTION
};

constexpr const char* libraries[] = {"libpulse.so.0", "libpulse-simple.so.0"};

} // namespace

extern "C" void nubo_pulse_load()
{
    static std::once_flag once;
    std::call_once(once, [] {
        nubo::loadOnFirstUse(libraries, functions, nubo_pulse_table, "libpulse0");
    });
}
