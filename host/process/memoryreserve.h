// Memory for one thread of a process in which another may use up all that is allowed.
#pragma once

namespace brvhost {

// From now on, the calling thread has a reserve that it takes when it finds no memory; another thread's operator new
// throws std::bad_alloc as ever. Called once in a process. Throws std::bad_alloc.
void ReserveMemory();

}  // namespace brvhost
