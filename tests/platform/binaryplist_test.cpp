// Tables of texts in the binary form and, where they are nested deep, in XML.
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "ownbundle.h"

namespace {

using namespace std::string_literals;

// A number of that many bytes, the highest first.
std::string Number(std::size_t number, int size) {
  std::string bytes;
  for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xFF);
  return bytes;
}

// References in these lists have three bytes, and so have offsets.
std::string Reference(std::size_t number) { return Number(number, 3); }

std::string List(const std::vector<std::string>& objects, std::size_t stated, std::size_t top = 0) {
  std::string file = "bplist00";
  std::string table;
  for (const std::string& object : objects) {
    table += Number(file.size(), 3);
    file += object;
  }
  const std::size_t tableStart = file.size();
  return file + table + std::string(6, '\0') + "\3\3" + Number(stated, 8) + Number(top, 8) + Number(tableStart, 8);
}
std::string List(const std::vector<std::string>& objects) { return List(objects, objects.size()); }

// The dictionary of one pair that objects 1 and 2 are.
std::string OnePair() { return "\xD1"s + Reference(1) + Reference(2); }

TEST_F(OwnBundle, ReadsTextsOfBothKindsInABinaryTable) {
  Open("{}", List({"\xD2"s + Reference(1) + Reference(2) + Reference(3) + Reference(4), "\x51k", "\x61\x00\xE9"s,
                   "\x53xyz", "\x62\x26\x6D\x00!"s}));
  EXPECT_EQ(Text(CFSTR("k")), "xyz");
  EXPECT_EQ(Text(CFSTR("\u00E9")), "\u266D!");
}

TEST_F(OwnBundle, ReadsLongTextsInABinaryTable) {
  const std::string text(60, 'x');
  Open("{}", List({OnePair(), "\x51k", "\x5F\x11"s + Number(text.size(), 2) + text}));
  EXPECT_EQ(Text(CFSTR("k")), text);
}

TEST_F(OwnBundle, ReadsABinaryTableInWhichAKeyHasACharacter0) {
  Open("{}", List({"\xD2"s + Reference(1) + Reference(2) + Reference(3) + Reference(3), "\x53"s + "a\0b"s, "\x51k",
                   "\x51v"}));
  EXPECT_EQ(Text(CFSTR("k")), "v");
}

TEST_F(OwnBundle, ReadsABinaryTableHoweverDeepItsValuesAreNested) {
  constexpr std::size_t kArrays = 100'000;
  std::vector<std::string> objects = {"\xD2"s + Reference(1) + Reference(2) + Reference(3) + Reference(4), "\x51k",
                                      "\x51n", "\x51v"};
  while (objects.size() < kArrays) objects.push_back("\xA1" + Reference(objects.size() + 1));
  objects.push_back("\xA0");
  Open("{}", List(objects));
  EXPECT_EQ(Text(CFSTR("k")), "v");
  EXPECT_EQ(Text(CFSTR("n")), "n") << "no text";
}

struct BrokenList {
  const char* name;
  std::string file;
};

void PrintTo(const BrokenList& list, std::ostream* out) { *out << list.name; }

class BrokenBinaryTable : public OwnBundle, public testing::WithParamInterface<BrokenList> {};

TEST_P(BrokenBinaryTable, IsLostWhole) {
  Open("{}", GetParam().file);
  EXPECT_EQ(Text(CFSTR("k")), "k");
}

const std::vector<std::string> kGood = {OnePair(), "\x51k", "\x51v"};

std::vector<std::string> With(std::size_t index, const std::string& object) {
  std::vector<std::string> objects = kGood;
  objects.at(index) = object;
  return objects;
}

INSTANTIATE_TEST_SUITE_P(
    Lists, BrokenBinaryTable,
    testing::Values(BrokenList{"NoTrailer", "bplist00"}, BrokenList{"MoreObjectsThanTheTable", List(kGood, 4)},
                    BrokenList{"ATopThatIsNotThere", List(kGood, 3, 3)},
                    BrokenList{"ATopThatIsNoDictionary", List(kGood, 3, 1)},
                    BrokenList{"AReferenceThatLeadsNowhere", List(With(0, "\xD1"s + Reference(1) + Reference(3)))},
                    BrokenList{"AKeyThatIsNoText",
                               List({"\xD2"s + Reference(1) + Reference(3) + Reference(2) + Reference(2), "\x51k",
                                     "\x51v", "\x10k"})},
                    BrokenList{"ATextBeyondTheObjects", List(With(2, "\x5Ev"))},
                    BrokenList{"ACountThatIsNoNumber", List(With(2, "\x5F\x51v"))},
                    BrokenList{"ACountBeyondAllNumbers", List(With(2, "\x5F\x13"s + std::string(8, '\xFF')))},
                    BrokenList{"AnObjectOfNoKind", List(With(2, "\x71v"))}),
    [](const auto& scenario) { return scenario.param.name; });

std::string NestedXml(int arrays) {
  std::string file = "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>k</key><string>v</string><key>n</key>";
  for (int i = 0; i < arrays; ++i) file += "<array>";
  for (int i = 0; i < arrays; ++i) file += "</array>";
  return file + "</dict></plist>";
}

TEST_F(OwnBundle, ReadsAnXmlTableThatIsNestedDeep) {
  Open("{}", NestedXml(199));
  EXPECT_EQ(Text(CFSTR("k")), "v");
}

TEST_F(OwnBundle, LosesAnXmlTableThatIsNestedTooDeep) {
  Open("{}", NestedXml(200'000));
  EXPECT_EQ(Text(CFSTR("k")), "k");
}

TEST_F(OwnBundle, ReadsAnXmlTableOfAnyNumberOfArraysBesideEachOther) {
  std::string arrays;
  for (int i = 0; i < 1000; ++i) arrays += "<array/><array></array><dict />";
  Open("{}", "<plist version=\"1.0\"><dict><key>n</key><array>" + arrays +
                 "</array><key>k</key><string>v</string></dict></plist>");
  EXPECT_EQ(Text(CFSTR("k")), "v");
}

}  // namespace
