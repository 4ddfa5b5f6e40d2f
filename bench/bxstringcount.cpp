// Calls ICU's functions and the bx_ functions once each, between two functions that do nothing: countinstructions.sh
// finds these in what an emulator has listed. Prints what it calls in the same order, a line for each two calls.
#include <cstdio>

#include "bxstringpairs.h"

extern "C" {

[[gnu::noinline]] void BrvCountFrom() { benchmark::ClobberMemory(); }
[[gnu::noinline]] void BrvCountTo() { benchmark::ClobberMemory(); }

}  // extern "C"

namespace {

// The first call, which is not counted, lets the dynamic loader find the function.
void Count(void (*call)(Texts&), Texts& texts) {
  call(texts);
  BrvCountFrom();
  call(texts);
  BrvCountTo();
}

}  // namespace

int main() {
  for (const Pair& pair : kPairs) {
    for (const std::size_t length : kLengths) {
      Texts texts(length);
      Count(pair.icu, texts);
      Count(pair.ours, texts);
      std::printf("%s of %zu units\n", pair.name, length);
    }
  }
}
