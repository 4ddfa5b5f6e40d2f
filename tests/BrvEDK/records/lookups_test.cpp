// When the host's functions for records are looked up: first of all, whatever the call then does. A function
// that is first called before the host is bound never finds its host function.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <vector>

#include "hostbundle.h"
#include "legacyhost.h"

namespace {

struct FirstCall {
  const char* what;
  std::function<void()> make;
};

EDataKey Key(int number) { return {static_cast<std::uint16_t>(number), 0}; }

void Load(const char* tag, int number, void* data, std::int32_t size) {
  EDataKey key = Key(number);
  BX_LoadEData(Tag(tag), &key, data, &size, kBrvVersion);
}

void Save(const char* tag, int number, void* data, std::uint32_t size, BrvVersion version = kBrvVersion) {
  EDataKey key = Key(number);
  BX_SaveEData(Tag(tag), &key, data, size, version);
}

// Ends the process with 0 if none of the later call's functions reaches the host that is bound meanwhile.
[[noreturn]] void ExitAfterBinding(const char* function, const std::function<short16()>& laterCall) {
  RecordingHost host;
  host.Answer(function, 1);
  const bool reached = laterCall() != 0 || host.Count(function) != 0;
  std::_Exit(reached ? 1 : 0);
}

std::array<std::uint8_t, 256> zeros{};

// Each case is a process: what was looked up stays so in every later one.
TEST(LoadEData, LooksItsHostFunctionUpFirstOfAll) {
  const std::vector<FirstCall> firstCalls = {
      {"a record of the host's", [] { Load("SOMS", 1, zeros.data(), 30); }},
      {"a table, without data", [] { Load("pfDP", 0, nullptr, 0); }},
      {"a table, without a size", [] { BX_LoadEData(Tag("pfDP"), nullptr, zeros.data(), nullptr, kBrvVersion); }},
      {"a table", [] { Load("pfDP", 0, zeros.data(), 76); }},
      {"a row, without data", [] { Load("pfGG", 0, nullptr, 0); }},
      {"a row, without a size", [] { BX_LoadEData(Tag("pfGG"), nullptr, zeros.data(), nullptr, kBrvVersion); }},
      {"a row, with a buffer too small", [] { Load("pfGG", 0, zeros.data(), 131); }},
      {"a number that is refused", [] { Load("pfSN", 129, zeros.data(), 12); }},
  };
  for (const FirstCall& firstCall : firstCalls) {
    SCOPED_TRACE(firstCall.what);
    EXPECT_EXIT(
        {
          firstCall.make();
          ExitAfterBinding("BX_LoadEData", [] {
            EDataKey key = Key(1);
            std::int32_t size = 30;
            return BX_LoadEData(Tag("SOMS"), &key, zeros.data(), &size, kBrvVersion);
          });
        },
        testing::ExitedWithCode(0), "");
  }
}

TEST(SaveEData, LooksItsHostFunctionUpFirstOfAll) {
  const std::vector<FirstCall> firstCalls = {
      {"a record of the host's", [] { Save("SOMS", 1, zeros.data(), 30); }},
      {"an old version", [] { Save("pfDP", 0, zeros.data(), 76, 0x07FFFFFF); }},
      {"a table, without data", [] { Save("pfDP", 0, nullptr, 76); }},
      {"a table, with too few bytes", [] { Save("pfDP", 0, zeros.data(), 71); }},
      {"a table in which nothing changed", [] { Save("pfDP", 0, zeros.data(), 76); }},
      {"a row, without data", [] { Save("pfGG", 0, nullptr, 132); }},
      {"a row, with too few bytes", [] { Save("pfGG", 0, zeros.data(), 131); }},
      {"a number that is refused", [] { Save("pfSN", 0, zeros.data(), 12); }},
  };
  for (const FirstCall& firstCall : firstCalls) {
    SCOPED_TRACE(firstCall.what);
    EXPECT_EXIT(
        {
          firstCall.make();
          ExitAfterBinding("BX_SaveEData", [] {
            EDataKey key = Key(1);
            return BX_SaveEData(Tag("SOMS"), &key, zeros.data(), 30, kBrvVersion);
          });
        },
        testing::ExitedWithCode(0), "");
  }
}

// The other way round: a call of one function leaves the other alone, where it has no need of it.
TEST(LoadEData, DoesNotLookUpTheFunctionThatSaves) {
  EXPECT_EXIT(
      {
        Load("pfDP", 0, zeros.data(), 76);
        RecordingHost host;
        host.Answer("BX_SaveEData", 1);
        EDataKey key = Key(1);
        std::_Exit(BX_SaveEData(Tag("SOMS"), &key, zeros.data(), 30, kBrvVersion) == 1 ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
