// Preference tags that map to rows of whole legacy records.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "listing.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

struct Row {
  const char* tag;
  const char* legacyTag;
  int records;
  int firstNumber;  // of those that are accepted
  int lastNumber;
  int indexOfFirst;  // the legacy index that the first number leads to, and the last
  int indexOfLast;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.tag; }

constexpr int kAny = 65535;

const Row kRows[] = {
    {"pfGD", "ot79", 1, 0, kAny, 0, 0}, {"pfGG", "ot88", 11, 0, kAny, 0, 0}, {"pfGb", "ot98", 1, 1, 4, 0, 3},
    {"pfGd", "ot80", 1, 0, kAny, 0, 0}, {"pfGs", "ot91", 1, 1, 1, 0, 0},     {"pfMM", "ot25", 2, 0, kAny, 0, 0},
    {"pfND", "ot04", 1, 0, kAny, 0, 0}, {"pfNd", "ot66", 1, 0, kAny, 0, 0},  {"pfPF", "ot77", 4, 1, 1, 0, 0},
    {"pfSC", "ot52", 2, 0, kAny, 0, 0}, {"pfSN", "ot40", 1, 1, 128, 0, 127}, {"pfSP", "ot94", 3, 0, kAny, 0, 0},
    {"pfSl", "ot26", 1, 1, 15, 0, 14},  {"pfTC", "ot86", 5, 0, kAny, 0, 0},  {"pfTI", "ot84", 4, 0, kAny, 0, 0},
    {"pfTX", "ot78", 9, 0, kAny, 0, 0}, {"pfTp", "ot85", 4, 0, kAny, 0, 0},  {"pfTs", "ot90", 1, 1, 9, 0, 8}};

class MappedTag : public testing::TestWithParam<Row> {
 protected:
  int Load(int number, std::size_t room) {
    EDataKey key{static_cast<std::uint16_t>(number), 77};
    size = static_cast<std::int32_t>(room);
    return BX_LoadEData(Tag(row.tag), &key, bytes.data(), &size, kBrvVersion);
  }
  int Save(int number, std::size_t room) {
    EDataKey key{static_cast<std::uint16_t>(number), 77};
    return BX_SaveEData(Tag(row.tag), &key, bytes.data(), static_cast<std::uint32_t>(room), kBrvVersion);
  }
  std::vector<Address> Addresses(int firstIndex) const {
    std::vector<Address> addresses;
    for (int i = 0; i < row.records; ++i) addresses.emplace_back(Tag(row.legacyTag), 0xFFFE, firstIndex + i);
    return addresses;
  }

  const Row& row = GetParam();
  const std::size_t whole = static_cast<std::size_t>(row.records) * 12;
  std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(whole + 4, 0xA5);
  std::int32_t size = 0;
  LegacyHost host;
};

TEST_P(MappedTag, LoadsTheLegacyRecordsOfTheNumbersAtBothEnds) {
  for (const auto& [number, index] :
       {std::pair{row.firstNumber, row.indexOfFirst}, {row.lastNumber, row.indexOfLast}}) {
    host.loads.clear();
    EXPECT_EQ(Load(number, whole), 1);
    EXPECT_EQ(size, static_cast<int>(whole));
    EXPECT_THAT(host.loads, ElementsAreArray(Addresses(index))) << number;
    for (int i = 0; i < row.records; ++i) {
      EXPECT_EQ(std::memcmp(bytes.data() + 12 * i, host.At(Addresses(index)[static_cast<std::size_t>(i)]).data(), 12),
                0);
    }
    EXPECT_EQ(bytes[whole], 0xA5);
  }
}

TEST_P(MappedTag, RefusesTheNumbersBeyondBothEnds) {
  for (const int number : {row.firstNumber - 1, row.lastNumber + 1}) {
    if (number < 0 || number > 65535) continue;
    if (std::string(row.tag) == "pfPF" && number == 0) continue;  // another record, field by field
    EXPECT_EQ(Load(number, whole), 0) << number;
    EXPECT_EQ(Save(number, whole), 0) << number;
  }
  EXPECT_THAT(host.loads, IsEmpty());
  EXPECT_THAT(host.saves, IsEmpty());
}

TEST_P(MappedTag, ReportsItsSizeWithoutData) {
  EDataKey key{1, 0};
  EXPECT_EQ(BX_LoadEData(Tag(row.tag), &key, nullptr, &size, kBrvVersion), 1);
  EXPECT_EQ(size, static_cast<int>(whole));
  EXPECT_EQ(BX_LoadEData(Tag(row.tag), &key, bytes.data(), nullptr, kBrvVersion), 0);
  EXPECT_THAT(host.loads, IsEmpty());
}

TEST_P(MappedTag, NeedsRoomForTheWhole) {
  EXPECT_EQ(Load(1, whole - 1), 0);
  EXPECT_EQ(Save(1, whole - 1), 0);
  EDataKey key{1, 0};
  EXPECT_EQ(BX_SaveEData(Tag(row.tag), &key, nullptr, static_cast<std::uint32_t>(whole), kBrvVersion), 0);
  EXPECT_THAT(host.loads, IsEmpty());
  EXPECT_THAT(host.saves, IsEmpty());
}

TEST_P(MappedTag, SavesTheLegacyRecordsUnread) {
  for (std::size_t i = 0; i < whole; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + 1);
  EXPECT_EQ(Save(row.lastNumber, whole), 1);
  EXPECT_THAT(host.saves, ElementsAreArray(Addresses(row.indexOfLast)));
  EXPECT_THAT(host.saveVersions, testing::Each(kBrvVersion));
  EXPECT_THAT(host.loads, IsEmpty());
  for (int i = 0; i < row.records; ++i) {
    const Address address = Addresses(row.indexOfLast)[static_cast<std::size_t>(i)];
    EXPECT_EQ(std::memcmp(bytes.data() + 12 * i, host.At(address).data(), 12), 0);
  }
}

TEST_P(MappedTag, CountsAsLoadedAndSavedWhenTheHostFails) {
  host.fails = true;
  EXPECT_EQ(Load(1, whole), 1);
  EXPECT_EQ(Save(1, whole), 1);
}

// The records that the host lacks leave zeros, not what the caller's buffer held, and each is loaded into a record of
// the kit's: what a failed load writes does not last into the next.
TEST_P(MappedTag, LeavesZerosForRecordsThatTheHostLacks) {
  const std::vector<Address> addresses = Addresses(row.indexOfFirst);
  const std::size_t missing = addresses.size() / 2;
  host.failingLoads = {addresses[missing]};
  std::vector<std::uint8_t> expected(whole + 4, 0xA5);
  for (std::size_t i = 0; i < addresses.size(); ++i) {
    std::memcpy(expected.data() + 12 * i, host.At(addresses[i]).data(), 12);
  }
  std::memset(expected.data() + 12 * missing, 0, 12);
  EXPECT_EQ(Load(row.firstNumber, whole), 1);
  EXPECT_EQ(bytes, expected);
}

TEST_P(MappedTag, WritesItsSizeLast) {
  std::vector<std::int32_t> sizesMeanwhile;
  std::vector<bool> recordsOfTheKit;
  host.host.On("BX_LoadEData", [&](const HostCall& call) {
    sizesMeanwhile.push_back(size);
    const auto* const data = call.Pointer<std::uint8_t>(2);
    recordsOfTheKit.push_back(data + 12 <= bytes.data() || data >= bytes.data() + bytes.size());
    return 0u;
  });
  EXPECT_EQ(Load(row.firstNumber, whole + 3), 1);
  EXPECT_EQ(size, static_cast<int>(whole));
  EXPECT_THAT(sizesMeanwhile, testing::ElementsAreArray(std::vector<std::int32_t>(
                                  static_cast<std::size_t>(row.records), static_cast<std::int32_t>(whole + 3))));
  EXPECT_THAT(recordsOfTheKit, testing::Each(true));
}

INSTANTIATE_TEST_SUITE_P(All, MappedTag, testing::ValuesIn(kRows),
                         [](const auto& tested) { return std::string(tested.param.tag); });

// A tag that is not mapped reaches the host as it is.
TEST(MappedTags, AreTheseAndNoOthers) {
  std::set<std::uint32_t> expected;
  for (const Row& row : kRows) expected.insert(Tag(row.tag));
  for (const ListedRecord& record : ListedRecords()) expected.insert(Tag(record.tag));
  LegacyHost host;
  std::set<std::uint32_t> mapped;
  const std::uint32_t first = 'p' << 24 | 'f' << 16;
  for (std::uint32_t tag = first; tag < first + 0x10000; ++tag) {
    EDataKey key{1, 0};
    std::int32_t size = 0;
    host.loads.clear();
    host.host.Forget();
    BX_LoadEData(tag, &key, nullptr, &size, kBrvVersion);
    if (host.loads.empty()) mapped.insert(tag);
  }
  EXPECT_EQ(mapped, expected);
}

}  // namespace
