// The functions that extensions can ask their host for, beside the list of them that was typed apart.
#include "host/calls/hostfunctions.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace brvhost {
namespace {

std::string ClassOf(ValueKind kind) {
  switch (kind) {
    case ValueKind::kShort16:
      return "short16";
    case ValueKind::kUShort16:
      return "ushort16";
    case ValueKind::kFlag8:
      return "flag8";
    case ValueKind::kInt32:
    case ValueKind::kUInt32:
      return "int32";
    default:
      return "ptr";
  }
}

// As a line of the list.
std::string LineOf(const HostFunction& function) {
  std::string parameters;
  for (const HostParameter& parameter : function.parameters) {
    parameters += (parameters.empty() ? "" : " ") + ClassOf(parameter.kind);
  }
  const std::string result = function.result == ValueKind::kShort16 || function.result == ValueKind::kUShort16
                                 ? ClassOf(function.result)
                                 : "as host";
  return std::string(function.name) + "\t" + parameters + "\t" + result + "\t" + std::to_string(function.defaultResult);
}

// All lines, sorted, so that a test shows where they differ.
std::string Sorted(const std::multiset<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

std::string DocumentedLines() {
  std::ifstream file(BRV_SOURCE_DIR "/tests/BrvEDK/bridge/calls.txt");
  std::multiset<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with('#')) lines.insert(line);
  }
  return Sorted(lines);
}

const HostFunction& Function(const char* name) { return HostFunctions().at(IndexOfHostFunction(name).value()); }

std::vector<std::string> NamesOfParameters(const char* name) {
  std::vector<std::string> names;
  for (const HostParameter& parameter : Function(name).parameters) names.push_back(parameter.name);
  return names;
}

TEST(HostFunctions, AreThoseOfTheDocumentation) {
  std::multiset<std::string> lines;
  for (const HostFunction& function : HostFunctions()) lines.insert(LineOf(function));
  EXPECT_EQ(Sorted(lines), DocumentedLines());
}

TEST(HostFunctions, HaveTheNamesOfTheirArguments) {
  EXPECT_EQ(NamesOfParameters("BX_LoadTGF"),
            (std::vector<std::string>{"regionScope", "staff", "measure", "layer", "loadFlag"}));
  EXPECT_EQ(NamesOfParameters("BX_SaveEData"), (std::vector<std::string>{"tag", "key", "data", "size"}));
  EXPECT_EQ(NamesOfParameters("BX_GetMaxLayers"), std::vector<std::string>());
  EXPECT_EQ(NamesOfParameters("BX_QueryOdelSlot").back(), "argument19");
}

TEST(HostFunctions, AreInGroups) {
  EXPECT_STREQ(Function("BX_LoadTGF").group, "Frames and entries");
  EXPECT_STREQ(Function("BX_CheckBrv2012Accidentals").group, "Frames and entries");
  EXPECT_STREQ(Function("BX_StartMassEdit").group, "Edit brackets and progress");
  EXPECT_STREQ(Function("BX_NextEData").group, "Document records");
}

TEST(HostFunctions, KnowWhichOfThemThisProgramHas) {
  EXPECT_NE(Function("BX_LoadTGF").own, nullptr);
  EXPECT_EQ(Function("BX_Dialog").own, nullptr);
}

TEST(HostFunctions, OfAnotherNameAreUnknown) {
  EXPECT_EQ(IndexOfHostFunction("BX_NoSuchFunction"), std::nullopt);
  EXPECT_EQ(IndexOfHostFunction(""), std::nullopt);
}

TEST(NumbersInRegisters, AreCutAndExtendedByTheirKind) {
  constexpr Register kBits = 0xFFFF'FFFF'1234'8081;
  EXPECT_EQ(NumberIn(kBits, ValueKind::kShort16), -0x7F7F);
  EXPECT_EQ(NumberIn(kBits, ValueKind::kUShort16), 0x8081);
  EXPECT_EQ(NumberIn(kBits, ValueKind::kFlag8), 0x81);
  EXPECT_EQ(NumberIn(kBits, ValueKind::kInt32), 0x12348081);
  EXPECT_EQ(NumberIn(0xFFFF'FFFF, ValueKind::kInt32), -1);
  EXPECT_EQ(NumberIn(0xFFFF'FFFF, ValueKind::kUInt32), 0xFFFF'FFFF);
  EXPECT_EQ(NumberIn(kBits, ValueKind::kHostResult), static_cast<std::int64_t>(kBits));
}

}  // namespace
}  // namespace brvhost
