// Every host call: the arguments that the host gets, and the result that the caller gets.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brevixpdk.h"
#include "calltable.h"
#include "recordinghost.h"

namespace {

constexpr std::uint64_t kJunk = 0xA5C3'0000'0000'0000;

// Addresses that the kit may read: of frames without entries, and far apart.
std::uint64_t Address(std::size_t index) {
  static std::uint8_t memory[64 * 64];
  return reinterpret_cast<std::uint64_t>(&memory[64 * index]);
}

// A register as a careless caller leaves it: bits above those of the class must not arrive.
std::uint64_t CallerRegister(const std::string& type, std::uint16_t low, std::size_t index) {
  if (type == "ptr") return Address(index);
  if (type == "int32") return kJunk | 0x8765'0000u | low;
  return kJunk | 0x1234'0000u | low;
}

std::uint64_t HostRegister(const std::string& type, std::uint16_t low, std::size_t index) {
  if (type == "ptr") return Address(index);
  if (type == "int32") return 0x8765'0000u | low;
  if (type == "flag8") return low & 0xFF;
  if (type == "ushort16") return low;
  return low < 0x8000 ? low : 0xFFFF'0000u | low;
}

constexpr std::uint32_t kSomeVersion = 0x0BADCAFE;

class EveryHostCall : public testing::TestWithParam<DocumentedCall> {
 protected:
  void SetUp() override { BrevixEditDepth = 100; }

  std::uint64_t Call(std::uint16_t low) {
    std::vector<std::uint64_t> registers;
    for (const std::string& type : GetParam().arguments) {
      registers.push_back(CallerRegister(type, static_cast<std::uint16_t>(low + registers.size()), registers.size()));
    }
    registers.push_back(kJunk | kSomeVersion);
    return CallWithRegisters(KitFunction(GetParam().name), registers);
  }

  void ExpectHostSees(std::uint16_t low) {
    host_.Forget();
    Call(low);
    ASSERT_EQ(host_.Calls().size(), 1u);
    const HostCall& call = host_.Calls()[0];
    EXPECT_EQ(call.name, GetParam().name);
    ASSERT_EQ(call.arguments.size(), GetParam().arguments.size() + 1);
    for (std::size_t i = 0; i < GetParam().arguments.size(); ++i) {
      EXPECT_EQ(call.arguments[i], HostRegister(GetParam().arguments[i], static_cast<std::uint16_t>(low + i), i))
          << "argument " << i + 1;
    }
    EXPECT_EQ(call.arguments.back(), kSomeVersion);
  }

  RecordingHost host_;
};

TEST_P(EveryHostCall, GivesTheHostItsArgumentsWidenedInTheirOrderAndTheVersionLast) {
  ExpectHostSees(0x0011);
  ExpectHostSees(0x8011);
  ExpectHostSees(0xFFC0);
}

TEST_P(EveryHostCall, DistinguishesMinusOneFrom65535ByTheClass) {
  host_.Forget();
  std::vector<std::uint64_t> registers;
  for (const std::string& type : GetParam().arguments) {
    registers.push_back(type == "ptr" ? Address(0) : kJunk | 0xFFFF'FFFFu);
  }
  registers.push_back(kSomeVersion);
  CallWithRegisters(KitFunction(GetParam().name), registers);
  ASSERT_EQ(host_.Calls().size(), 1u);
  for (std::size_t i = 0; i < GetParam().arguments.size(); ++i) {
    const std::string& type = GetParam().arguments[i];
    if (type == "ptr") continue;
    const int expected = type == "ushort16" ? 65535 : type == "flag8" ? 255 : -1;
    EXPECT_EQ(host_.Calls()[0].Int(i), expected) << "argument " << i + 1;
  }
}

TEST_P(EveryHostCall, ReturnsTheHostsResultWidenedByItsClass) {
  if (GetParam().name == "BX_CancelBrevixEdit") GTEST_SKIP() << "it has no result";
  const std::uint64_t answer = 0x7654'3210'ABCD'8001;
  host_.Answer(GetParam().name, answer);
  const std::uint64_t result = Call(0);
  const bool hasIntegerDefault = GetParam().result == "as host" && GetParam().defaultResult != 0;
  if (GetParam().result == "short16") {
    EXPECT_EQ(static_cast<std::uint32_t>(result), 0xFFFF'8001u);
  } else if (GetParam().result == "ushort16") {
    EXPECT_EQ(static_cast<std::uint32_t>(result), 0x0000'8001u);
  } else if (hasIntegerDefault) {
    EXPECT_EQ(static_cast<std::uint32_t>(result), static_cast<std::uint32_t>(answer));
  } else {
    EXPECT_EQ(result, answer);
  }
}

std::string NameOf(const testing::TestParamInfo<DocumentedCall>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(All, EveryHostCall, testing::ValuesIn(DocumentedCalls()), NameOf);

TEST(CallTable, HasTheDocumentedFunctionsAndNoOthers) {
  std::vector<std::string> documented;
  for (const DocumentedCall& call : DocumentedCalls()) documented.push_back(call.name);
  EXPECT_THAT(KitFunctionNames(), testing::UnorderedElementsAreArray(documented));
  EXPECT_FALSE(documented.empty());
}

}  // namespace
