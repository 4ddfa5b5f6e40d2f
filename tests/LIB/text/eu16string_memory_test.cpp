// Memory that runs out, at each single allocation of the kit's in turn: std::bad_alloc comes out, nothing leaks, and
// the texts that were there stay. operator new is this program's own; what the platform allocates is left to the
// platform.
#include <CoreFoundation/CoreFoundation.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "eu16text.h"

namespace {

const void* ImageOf(const void* address) {
  Dl_info info = {};
  return dladdr(address, &info) == 0 ? nullptr : info.dli_fbase;
}

// Counts the blocks that are held, and fails one of the kit's allocations.
class Memory {
 public:
  // Runs the operation. The kit's allocation of that number fails, from 1 on; with 0 none does. Returns whether
  // std::bad_alloc came out.
  template <class Operation>
  bool Throws(Operation operation, int failing) {
    asked_ = 0;
    failing_ = failing;
    watching_ = true;
    try {
      operation();
    } catch (const std::bad_alloc&) {
      watching_ = false;
      return true;
    }
    watching_ = false;
    return false;
  }

  int Asked() const { return asked_; }  // how often the kit did, in that run
  long Held() const { return held_; }   // blocks, whosever they are

  void* Allocate(std::size_t size) {
    if (watching_ && IsForTheKit() && ++asked_ == failing_) throw std::bad_alloc();
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    ++held_;
    return block;
  }
  void Free(void* block) {
    if (block != nullptr) --held_;
    std::free(block);
  }

 private:
  // Whether, of the kit and the platform, the kit is the nearest caller.
  bool IsForTheKit() {
    watching_ = false;  // to find out takes memory
    static const void* const kit = ImageOf(reinterpret_cast<void*>(&IntToEu16Str));
    static const void* const platform = ImageOf(reinterpret_cast<void*>(&CFRelease));
    void* frames[12];
    const int count = backtrace(frames, 12);
    bool isKits = false;
    for (int i = 0; i < count; ++i) {
      const void* const image = ImageOf(frames[i]);
      isKits = image == kit;
      if (isKits || image == platform) break;
    }
    watching_ = true;
    return isKits;
  }

  bool watching_ = false;
  int asked_ = 0;
  int failing_ = 0;
  long held_ = 0;
};

constinit Memory memory;

}  // namespace

void* operator new(std::size_t size) { return memory.Allocate(size); }
void* operator new[](std::size_t size) { return memory.Allocate(size); }
// The sanitizers' own would not take its memory from here.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return memory.Allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* block) noexcept { memory.Free(block); }
void operator delete[](void* block) noexcept { memory.Free(block); }
void operator delete(void* block, std::size_t) noexcept { memory.Free(block); }
void operator delete[](void* block, std::size_t) noexcept { memory.Free(block); }

namespace {

constexpr const char* kLong = "a text that is longer than what a string holds in itself";
constexpr const char* kLonger = "a text of that kind which is longer by far than the first of them, and twice so";

std::u16string UnitsIn(const char* text) { return std::u16string(text, text + std::strlen(text)); }

// Lets each allocation of the operation fail once, on something newly made; `check` looks at what is left of that.
template <class Make, class Operation, class Check>
void ExpectToThrowAtEachAllocation(Make make, Operation operation, Check check) {
  const auto throws = [&](int failing) {
    auto made = make();
    const bool threw = memory.Throws([&] { operation(made); }, failing);
    if (threw) check(made);
    return threw;
  };
  EXPECT_FALSE(throws(0));  // the platform makes now what it keeps for good
  const int allocations = memory.Asked();
  ASSERT_GT(allocations, 0);
  for (int failing = 1; failing <= allocations; ++failing) {
    SCOPED_TRACE(testing::Message() << "allocation " << failing << " of " << allocations);
    const long held = memory.Held();
    EXPECT_TRUE(throws(failing));
    EXPECT_EQ(memory.Asked(), failing) << "it asked again";
    EXPECT_EQ(memory.Held(), held) << "of the blocks that were there";
  }
}

template <class Operation>
void ExpectToThrowAtEachAllocation(Operation operation) {
  ExpectToThrowAtEachAllocation([] { return 0; }, [&](int) { operation(); }, [](int) {});
}

template <class Operation>
void ExpectNoAllocation(Operation operation) {
  EXPECT_FALSE(memory.Throws(operation, 1));
  EXPECT_EQ(memory.Asked(), 0);
}

TEST(Eu16StringWithoutMemory, CannotBeMadeOfBytes) {
  for (const char* const text : {"", "a", "1234567", "12345678", kLong}) {
    SCOPED_TRACE(text);
    ExpectToThrowAtEachAllocation([=] { eu16string{text}; });
    ExpectToThrowAtEachAllocation([=] { FromUtf8(text); });
  }
  ExpectToThrowAtEachAllocation([] { eu16string{'a'}; });
}

TEST(Eu16StringWithoutMemory, CanBeMadeOfACodePoint) {
  ExpectNoAllocation([] { eu16string{0x41u}; });
  ExpectNoAllocation([] { eu16string{0x1F600u}; });
}

TEST(Eu16StringWithoutMemory, IsNotCopied) {
  const eu16string text = kLong;
  ExpectToThrowAtEachAllocation([&] { eu16string{text}; });
  EXPECT_EQ(UnitsOf(text), UnitsIn(kLong));
}

TEST(Eu16StringWithoutMemory, KeepsTheTextThatACopyWasToReplace) {
  const eu16string longer = kLonger;
  for (const char* const before : {"", "abc", kLong}) {
    SCOPED_TRACE(before);
    ExpectToThrowAtEachAllocation([=] { return eu16string(before); }, [&](eu16string& text) { text = longer; },
                                  [=](const eu16string& text) { EXPECT_EQ(UnitsOf(text), UnitsIn(before)); });
  }
  EXPECT_EQ(UnitsOf(longer), UnitsIn(kLonger));
}

TEST(Eu16StringWithoutMemory, IsMoved) {
  eu16string text = kLong;
  eu16string other = kLonger;
  ExpectNoAllocation([&] {
    eu16string moved = std::move(text);
    text = std::move(other);
    other = std::move(moved);
  });
  EXPECT_EQ(UnitsOf(text), UnitsIn(kLonger));
  EXPECT_EQ(UnitsOf(other), UnitsIn(kLong));
}

TEST(Eu16StringWithoutMemory, LeavesTheBytesThatItWasToFillEmpty) {
  const eu16string text = kLong;
  for (const char* const before : {"", "left over", kLonger}) {
    SCOPED_TRACE(before);
    ExpectToThrowAtEachAllocation([=] { return std::string(before); },
                                  [&](std::string& bytes) { text.GetStdString(bytes); },
                                  [](const std::string& bytes) { EXPECT_EQ(bytes, ""); });
  }
}

TEST(Eu16StringWithoutMemory, GivesNoLongPart) {
  const eu16string text = kLong;
  ExpectToThrowAtEachAllocation([&] { text.AnsiSubString(2, 30); });
  EXPECT_EQ(UnitsOf(text), UnitsIn(kLong));
}

TEST(Eu16StringWithoutMemory, IsSearchedReadAndCut) {
  eu16string text = kLong;
  const eu16string part = "in itself";
  ExpectNoAllocation([&] {
    text.AnsiPos(part);
    std::as_const(text).AnsiCharAtIndex(3);
    text.AnsiCharAtIndex(3) = 'x';
    text.AnsiDelete(2, 1);
    text.AnsiSetLength(20);
  });
  EXPECT_EQ(UnitsOf(text), u"axext that is longer");
}

TEST(Eu16StringWithoutMemory, IsNotReadAsANumber) {
  const eu16string text = "12345678901234567890 staves";
  ExpectToThrowAtEachAllocation([&] { StrToIntDef(text, 7); });
  EXPECT_EQ(StrToIntDef(text, 7), INT32_MAX);
}

TEST(Eu16StringWithoutMemory, IsNotMadeOfANumber) {
  for (const long value : {0L, 1234567L, LONG_MIN}) {
    SCOPED_TRACE(value);
    ExpectToThrowAtEachAllocation([=] { IntToEu16Str(value); });
  }
}

}  // namespace
