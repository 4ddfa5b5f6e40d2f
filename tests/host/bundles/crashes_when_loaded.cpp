#include <cstdlib>

#include "extension.h"

[[gnu::constructor]] static void Crash() { std::abort(); }
