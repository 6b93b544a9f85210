#include "OnFirstUse.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>

namespace nubo {

namespace {

[[noreturn]] void cannotLoad(const char* what, const char* why, const char* install)
{
    std::fprintf(stderr, "nuboshot: %s could not be loaded (%s); install %s\n", what, why,
                 install);
    std::abort();
}

} // namespace

void* functionIn(const std::vector<void*>& handles, const char* name, const char* install)
{
    for (void* handle : handles) {
        if (void* function = ::dlsym(handle, name)) {
            return function;
        }
    }
    cannotLoad(name, "no library of it has this function", install);
}

std::vector<void*> loadOnFirstUse(std::span<const char* const> libraries,
                                  std::span<const char* const> names, void** table,
                                  const char* install)
{
    std::vector<void*> handles;
    for (const char* library : libraries) {
        void* handle = ::dlopen(library, RTLD_NOW | RTLD_LOCAL);
        if (!handle) {
            cannotLoad(library, ::dlerror(), install);
        }
        handles.push_back(handle);
    }
    for (size_t slot = 0; slot < names.size(); ++slot) {
        table[slot] = functionIn(handles, names[slot], install);
    }
    return handles;
}

} // namespace nubo
