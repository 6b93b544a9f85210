#pragma once

#include <span>
#include <vector>

namespace nubo {

// For a library loaded on first use (OnFirstUse.inc): loads `libraries`
// (in order, each with what it needs, kept apart from the program's own
// symbols) and fills `table` with the functions named in `names`, looked up
// in them in that order. Returns the libraries' handles. A library or a
// function that is missing ends the program with one line naming it and
// `install`, the packages that bring it: the call that needed it cannot go
// on.
std::vector<void*> loadOnFirstUse(std::span<const char* const> libraries,
                                  std::span<const char* const> names, void** table,
                                  const char* install);

// The function `name` in the first of `handles` that has it; ends the program
// like loadOnFirstUse() when none has.
void* functionIn(const std::vector<void*>& handles, const char* name, const char* install);

} // namespace nubo
