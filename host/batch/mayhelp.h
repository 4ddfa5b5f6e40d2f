// Whether a repetition of the work on a score may help.
#pragma once

#include <cstdint>
#include <exception>

namespace brvhost {

// After an exception: what was lacking, or in the way, may be there or gone the next time.
bool MayPass(const std::exception& error);

// After the end of a process, by its status as waitpid gives it: who is short of memory kills others.
bool MayPass(int status);

}  // namespace brvhost
