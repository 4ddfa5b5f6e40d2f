#include "vectors.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <numeric>
#include <sstream>

#include "tests/support/shared.h"

namespace {

template <class Text>
Text FromHex(const std::string& hex) {
  std::istringstream words(hex);
  Text text;
  for (unsigned value; words >> std::hex >> value;) text.push_back(static_cast<typename Text::value_type>(value));
  return text;
}

std::string ToHex(std::string hex, unsigned value, int digits) {
  char word[8];
  std::snprintf(word, sizeof(word), "%0*X", digits, value);
  return hex + (hex.empty() ? "" : " ") + word;
}

}  // namespace

std::filesystem::path VectorFolder() { return SharedFolder() / "platform-vectors"; }

std::vector<VectorRow> ReadVectors(const std::filesystem::path& table) {
  std::ifstream file(table);
  std::vector<VectorRow> rows;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.starts_with('#')) continue;
    VectorRow row{number, {}};
    for (std::size_t begin = 0; begin <= line.size();) {
      const std::size_t end = std::min(line.find('\t', begin), line.size());
      row.columns.push_back(line.substr(begin, end - begin));
      begin = end + 1;
    }
    rows.push_back(std::move(row));
  }
  EXPECT_FALSE(rows.empty()) << table << " is empty";
  return rows;
}

std::u16string UnitsFromHex(const std::string& hex) { return FromHex<std::u16string>(hex); }
std::string HexOf(const std::u16string& units) {
  return std::accumulate(units.begin(), units.end(), std::string(),
                         [](std::string hex, char16_t unit) { return ToHex(std::move(hex), unit, 4); });
}

std::string BytesFromHex(const std::string& hex) { return FromHex<std::string>(hex); }
std::string HexOfBytes(const std::string& bytes) {
  return std::accumulate(bytes.begin(), bytes.end(), std::string(), [](std::string hex, char byte) {
    return ToHex(std::move(hex), static_cast<unsigned char>(byte), 2);
  });
}

std::string HexOf(CFStringRef string) {
  if (string == nullptr) return "NULL";
  std::u16string units(static_cast<std::size_t>(CFStringGetLength(string)), u'\0');
  CFStringGetCharacters(string, CFRangeMake(0, CFStringGetLength(string)), reinterpret_cast<UniChar*>(units.data()));
  return HexOf(units);
}

std::string TakeHex(CFStringRef string) {
  const std::string hex = HexOf(string);
  if (string != nullptr) CFRelease(string);
  return hex;
}

CFStringRef MakeString(const std::u16string& units) {
  return CFStringCreateWithCharacters(kCFAllocatorDefault, reinterpret_cast<const UniChar*>(units.data()),
                                      static_cast<CFIndex>(units.size()));
}
