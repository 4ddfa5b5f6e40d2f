// ICU's functions against the bx_ functions of the same kind, on the same text: a ratio of 4 is a quarter of ICU's
// time.
#include <string>

#include "bxstringpairs.h"
#include "sidebyside.h"

namespace {

// As many as take about a millisecond.
int CallsAt(std::size_t length) { return static_cast<int>(4'000'000 / (length + 8)); }

void Compare(const Pair& pair, std::size_t length) {
  Texts texts(length);
  const std::string text = std::string(pair.name) + " of " + std::to_string(length) + " units: ICU / bx_";
  const auto timed = [&texts](void (*call)(Texts&)) {
    return [&texts, call](int) {
      call(texts);
      benchmark::ClobberMemory();
    };
  };
  PrintRatio(text.c_str(), CallsAt(length), timed(pair.icu), timed(pair.ours));
}

}  // namespace

int main() {
  for (const Pair& pair : kPairs) {
    for (const std::size_t length : kLengths) Compare(pair, length);
  }
}
