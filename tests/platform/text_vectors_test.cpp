// The text calls answer as the macOS library does.
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include "tests/support/shared.h"
#include "vectors.h"

namespace {

class TextVectors : public testing::Test {
 protected:
  static CFStringEncoding EncodingOf(const std::string& text) {
    return static_cast<CFStringEncoding>(std::stoul(text, nullptr, 16));
  }
};

#define FOR_EACH_ROW(table)                   \
  const auto path = VectorFolder() / (table); \
  SKIP_WITHOUT(path);                         \
  for (const VectorRow& row : ReadVectors(path))

#define WHERE path.filename().string() << " line " << row.line

TEST_F(TextVectors, CreateWithCString) {
  FOR_EACH_ROW("fromcstring.tsv") {
    const std::string bytes = BytesFromHex(row.columns[1]);
    EXPECT_EQ(TakeHex(CFStringCreateWithCString(kCFAllocatorDefault, bytes.c_str(), EncodingOf(row.columns[0]))),
              row.columns[2])
        << WHERE;
  }
}

TEST_F(TextVectors, GetIntValue) {
  FOR_EACH_ROW("intvalue.tsv") {
    const CFStringRef string = MakeString(UnitsFromHex(row.columns[0]));
    EXPECT_EQ(CFStringGetIntValue(string), std::stol(row.columns[1])) << WHERE;
    CFRelease(string);
  }
}

TEST_F(TextVectors, GetMaximumSizeForEncoding) {
  FOR_EACH_ROW("maxsize.tsv") {
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(std::stol(row.columns[0]), EncodingOf(row.columns[1])),
              std::stol(row.columns[2]))
        << WHERE;
  }
}

TEST_F(TextVectors, CompareAndEqual) {
  FOR_EACH_ROW("compare.tsv") {
    const CFStringRef a = MakeString(UnitsFromHex(row.columns[0]));
    const CFStringRef b = MakeString(UnitsFromHex(row.columns[1]));
    EXPECT_EQ(CFStringCompare(a, b, 0), std::stol(row.columns[2])) << WHERE;
    EXPECT_EQ(CFEqual(a, b) != 0, row.columns[3] == "equal") << WHERE;
    CFRelease(a);
    CFRelease(b);
  }
}

TEST_F(TextVectors, GetBytes) {
  FOR_EACH_ROW("getbytes.tsv") {
    // For a capacity of 0, whether the system measures depends on how it happens to store the string.
    if (row.columns[3] == "0") continue;
    const CFStringRef string = MakeString(UnitsFromHex(row.columns[2]));
    const bool measured = row.columns[3] == "null";
    std::string buffer(measured ? 0 : std::stoul(row.columns[3]), '\xAA');
    CFIndex used = -1;
    const CFIndex count = CFStringGetBytes(string, CFRangeMake(0, CFStringGetLength(string)),
                                           EncodingOf(row.columns[0]), static_cast<UInt8>(std::stoul(row.columns[1])),
                                           false, measured ? nullptr : reinterpret_cast<UInt8*>(buffer.data()),
                                           static_cast<CFIndex>(buffer.size()), &used);
    EXPECT_EQ(count, std::stol(row.columns[4])) << WHERE;
    EXPECT_EQ(used, std::stol(row.columns[5])) << WHERE;
    if (!measured) {
      const auto written = std::min(buffer.size(), static_cast<std::size_t>(used));
      EXPECT_EQ(HexOfBytes(buffer.substr(0, written)), row.columns[6]) << WHERE;
    }
    CFRelease(string);
  }
}

TEST_F(TextVectors, GetPascalString) {
  FOR_EACH_ROW("pascal.tsv") {
    const CFStringRef string = MakeString(UnitsFromHex(row.columns[8]));
    std::string buffer(512, '\xAA');
    const bool done = CFStringGetPascalString(string, reinterpret_cast<StringPtr>(buffer.data()),
                                              std::stol(row.columns[3]), EncodingOf(row.columns[2]));
    EXPECT_EQ(done, row.columns[4] == "true") << WHERE;
    EXPECT_EQ(HexOfBytes(buffer.substr(0, 24)), row.columns[6]) << WHERE;
    CFRelease(string);
  }
}

}  // namespace
