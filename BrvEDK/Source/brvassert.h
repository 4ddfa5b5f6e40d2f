// Assertions that are on in every build: a broken installation or a record of the wrong size stops the process.
#pragma once

// Prints the failure as the system's assert does, and aborts.
[[noreturn]] void BrvAssertFailed(const char* function, const char* file, int line, const char* expression);
