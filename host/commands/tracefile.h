// Where the trace of a command goes.
#pragma once

#include "host/commands/options.h"
#include "host/process/descriptor.h"

namespace brvhost {

// The file, open and empty, or another descriptor of the standard error; none where no trace is asked for. Throws
// UsageError, and OutputError where there can be no such file.
[[nodiscard]] Descriptor OpenTrace(const Options& options);

// Whether the lines of the trace come between those for the user.
bool TracesToTerminal(const Options& options);

}  // namespace brvhost
