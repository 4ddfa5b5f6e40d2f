// Tables of facts about the macOS calls: one fact in each row, columns separated by tabs.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <filesystem>
#include <string>
#include <vector>

struct VectorRow {
  int line;
  std::vector<std::string> columns;
};

// The rows of a table of ../shared/platform-vectors: one at least, or the test fails.
std::vector<VectorRow> ReadVectors(const std::filesystem::path& table);

std::filesystem::path VectorFolder();

// "0041 00E9": text as UTF-16 units in hex.
std::u16string UnitsFromHex(const std::string& hex);
std::string HexOf(const std::u16string& units);

// "41 E9": bytes in hex.
std::string BytesFromHex(const std::string& hex);
std::string HexOfBytes(const std::string& bytes);

// The units of a string, which is released; "NULL" for none.
std::string TakeHex(CFStringRef string);
std::string HexOf(CFStringRef string);

CFStringRef MakeString(const std::u16string& units);
