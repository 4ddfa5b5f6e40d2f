// Processes that work beside this one.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

namespace brvhost {

// Starts a process that does the work and ends with the status that the work returns. Output that is still
// buffered is written first, so that it is not written twice. Throws std::system_error.
pid_t StartChild(const std::function<int()>& work);

// Waits for the end of a process, and returns its status as waitpid gives it.
int WaitForChild(pid_t process);

// How a process ended, by its status: "signal 11 (Segmentation fault)", "status 3".
std::string EndingOf(int status);

}  // namespace brvhost
