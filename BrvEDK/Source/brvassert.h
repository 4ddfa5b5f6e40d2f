// Assertions that are on in every build. A broken installation or a record of the wrong size stops the process.
#pragma once

// Prints the failure in the form of the system's assert, and aborts.
[[noreturn]] void BrvAssertFailed(const char* function, const char* file, int line, const char* expression);
