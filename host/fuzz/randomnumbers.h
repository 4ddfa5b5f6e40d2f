// Random numbers that are the same for a seed on every machine, with every compiler and library.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brvhost {

// SplitMix64. Seeds next to each other give numbers that have nothing in common.
//
// Where the order of two calls is left to the compiler, as among the arguments of a function, each needs a statement of
// its own.
class RandomNumbers {
 public:
  explicit RandomNumbers(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() {
    std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15;
    mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
    return mixed ^ mixed >> 31;
  }

  // From 0 up to `count`, which is above 0, itself not included.
  int Below(int count) { return static_cast<int>((Next() >> 32) * static_cast<std::uint64_t>(count) >> 32); }
  // Both ends included.
  int Between(int first, int last) { return first + Below(last - first + 1); }
  // Once in that many times.
  bool OneIn(int count) { return Below(count) == 0; }
  // From 1 to 2 to the power of `bits`, small numbers more often than large ones.
  int Small(int bits) {
    const int limit = 1 << Below(bits + 1);
    return 1 + Below(limit);
  }
  template <class Item, std::size_t count>
  const Item& OneOf(const Item (&items)[count]) {
    return items[Below(static_cast<int>(count))];
  }

 private:
  std::uint64_t state_;
};

}  // namespace brvhost
