// Copies whose destination is before the source and reaches into it: all memory must be as a plain loop over the units
// leaves it.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "units.h"

namespace {

using Bytes = std::vector<char>;

// Around one and four blocks of units, and well beyond.
constexpr std::size_t kLengths[] = {0, 1, 2, 3, 6, 7, 8, 9, 15, 16, 17, 30, 31, 32, 33, 63, 64, 65, 127, 300, 2100};
// In bytes: odd ones too, and less than a unit.
constexpr std::size_t kDistances[] = {0, 1, 2, 3, 4, 7, 14, 15, 16, 17, 18, 31, 32, 33, 62, 64, 66, 127, 128, 130, 500};

void PutUnit(char* at, std::size_t unit) {
  const auto value = static_cast<UniChar>(unit);
  std::memcpy(at, &value, sizeof(value));
}

// The loop: copies no more than count units, and returns how many it copied.
std::size_t PlainCopy(char* dst, const char* src, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    UniChar unit;
    std::memcpy(&unit, src + 2 * i, sizeof(unit));
    std::memcpy(dst + 2 * i, &unit, sizeof(unit));
    if (unit == 0) return i + 1;
  }
  return count;
}

// A text of a given length at a given number of bytes from the start, among other bytes. No unit is like its
// neighbours.
Bytes TextAtDistance(std::size_t length, std::size_t distance) {
  Bytes bytes(distance + 2 * (length + 1) + 200, 0x55);
  for (std::size_t i = 0; i < length; ++i) PutUnit(&bytes[distance + 2 * i], 0x100 + i);
  PutUnit(&bytes[distance + 2 * length], 0);
  return bytes;
}

UniChar* UnitsAt(Bytes& bytes, std::size_t place) { return reinterpret_cast<UniChar*>(bytes.data() + place); }

// Hands over each text at each distance, and where it begins in memory: at an even and at an odd address.
template <class Check>
void AtEveryDistance(Check check) {
  for (const std::size_t length : kLengths) {
    for (const std::size_t distance : kDistances) {
      for (const std::size_t front : {4, 5}) {
        SCOPED_TRACE(testing::Message() << length << " units, " << distance << " bytes after byte " << front);
        check(TextAtDistance(length, front + distance), front, distance, length);
      }
    }
  }
}

TEST(CopiesToTheFront, Strcpy) {
  AtEveryDistance([](const Bytes& before, std::size_t front, std::size_t distance, std::size_t length) {
    Bytes expected = before;
    PlainCopy(&expected[front], &expected[front + distance], length + 1);
    Bytes bytes = before;
    bx_strcpy(UnitsAt(bytes, front), UnitsAt(bytes, front + distance));
    EXPECT_EQ(bytes, expected);
    bytes = before;
    bx_strcpy(UnitsAt(bytes, front), 1, UnitsAt(bytes, front + distance));
    EXPECT_EQ(bytes, expected);
  });
}

// What follows the text is filled after the copy, over the source where that is in the way.
TEST(CopiesToTheFront, Strncpy) {
  AtEveryDistance([](const Bytes& before, std::size_t front, std::size_t distance, std::size_t length) {
    for (const std::size_t count : {std::size_t{0}, length / 2, length, length + 1, length + 9, length + 90}) {
      SCOPED_TRACE(count);
      Bytes expected = before;
      for (std::size_t i = PlainCopy(&expected[front], &expected[front + distance], count); i < count; ++i) {
        PutUnit(&expected[front + 2 * i], 0);
      }
      Bytes bytes = before;
      bx_strncpy(UnitsAt(bytes, front), UnitsAt(bytes, front + distance), count);
      EXPECT_EQ(bytes, expected);
    }
  });
}

// The source comes after the text that it is appended to: its distance is from the 0 unit that it is copied over.
TEST(CopiesToTheFront, Strcat) {
  AtEveryDistance([](Bytes before, std::size_t end, std::size_t distance, std::size_t length) {
    if (distance < sizeof(UniChar)) return;  // the 0 unit is the source's own
    const std::size_t front = end % 2;
    for (std::size_t at = front; at < end; at += sizeof(UniChar)) PutUnit(&before[at], 'a');
    PutUnit(&before[end], 0);
    Bytes expected = before;
    PlainCopy(&expected[end], &expected[end + distance], length + 1);
    Bytes bytes = before;
    bx_strcat(UnitsAt(bytes, front), 0, UnitsAt(bytes, end + distance));
    EXPECT_EQ(bytes, expected);
  });
}

}  // namespace
