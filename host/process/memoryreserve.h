// Memory for one thread of a process in which another may use up all that is allowed.
#pragma once

namespace brvhost {

// From now on, when the calling thread finds no memory, it takes what was laid by for it; another thread's operator new
// throws std::bad_alloc as ever. Called once in a process. Throws std::bad_alloc.
void LayMemoryBy();

}  // namespace brvhost
