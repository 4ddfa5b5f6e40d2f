#include "brvassert.h"

// The system declares this function only if assertions are on.
#undef NDEBUG
#include <cassert>

void BrvAssertFailed(const char* function, const char* file, int line, const char* expression) {
  __assert_rtn(function, file, line, expression);
}
