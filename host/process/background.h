// Threads that nobody waits for.
#pragma once

#include <functional>

namespace brvhost {

// Starts a thread that does the work. Throws std::system_error.
void RunInBackground(std::function<void()> work);

// Whether any of these threads is still at work: what they use must stay, and the process may only end at once.
bool IsAnythingInBackground();

}  // namespace brvhost
