// Memory that ran out, whoever has passed over it.
#pragma once

#include <new>

namespace brvhost {

// From now on, and from the last call on, HasMemoryRunOut notices.
void WatchMemory();
// Whether an operator new of this process's C++ library has failed.
bool HasMemoryRunOut();

// Does the work and returns its result. Throws std::bad_alloc where memory ran out meanwhile, even if the work made do
// without it: foreign code may have taken that for an answer, and gone on with half of its work.
template <class Work>
auto WithEnoughMemory(const Work& work) {
  WatchMemory();
  try {
    auto result = work();
    if (!HasMemoryRunOut()) return result;
  } catch (...) {
    if (!HasMemoryRunOut()) throw;
  }
  throw std::bad_alloc();
}

}  // namespace brvhost
