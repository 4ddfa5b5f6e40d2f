#include <cstdlib>

#include "extension.h"

[[gnu::destructor]] static void Crash() { std::abort(); }
