// The ten preference records that are put together field by field, against a listing of their fields.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "listing.h"
#include "tests/support/property.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr std::uint8_t kUntouched = 0xA5;
using Bytes = std::vector<std::uint8_t>;

// The record's number is 0, which is what the page-format record needs and the others do not look at.
Bytes Load(const ListedRecord& record) {
  Bytes bytes(record.Extent(), kUntouched);
  EDataKey key{0, 0};
  std::int32_t size = static_cast<std::int32_t>(bytes.size());
  EXPECT_EQ(BX_LoadEData(Tag(record.tag), &key, bytes.data(), &size, kBrvVersion), 1);
  EXPECT_EQ(size, record.size);
  return bytes;
}

int Save(const ListedRecord& record, Bytes bytes) {
  EDataKey key{0, 0};
  return BX_SaveEData(Tag(record.tag), &key, bytes.data(), static_cast<std::uint32_t>(bytes.size()), kBrvVersion);
}

// A load, without the listing, into a buffer that is larger than any record and filled before.
Bytes LoadOver(const std::string& tag, std::uint8_t fill) {
  Bytes bytes(256, fill);
  EDataKey key{0, 0};
  std::int32_t size = 0;
  EXPECT_EQ(BX_LoadEData(Tag(tag), &key, bytes.data(), &size, kBrvVersion), 1);
  return bytes;
}

int ReportedSize(const std::string& tag) {
  EDataKey key{0, 0};
  std::int32_t size = -1;
  EXPECT_EQ(BX_LoadEData(Tag(tag), &key, nullptr, &size, kBrvVersion), 1);
  return size;
}

int CountDifferent(const Bytes& a, const Bytes& b) {
  int count = 0;
  for (std::size_t i = 0; i < a.size(); ++i) count += a[i] != b[i];
  return count;
}

// A record is saved from two bytes for each field.
int CountFields(const std::string& tag) {
  Bytes bytes(256);
  EDataKey key{0, 0};
  for (std::uint32_t size = 0; size < bytes.size(); ++size) {
    if (BX_SaveEData(Tag(tag), &key, bytes.data(), size, kBrvVersion) != 0) return static_cast<int>(size / 2);
  }
  return 0;
}

std::uint32_t ValueAt(const Bytes& bytes, const ListedField& field) {
  std::uint32_t value = 0;
  std::memcpy(&value, bytes.data() + field.offset, static_cast<std::size_t>(field.Size()));
  return value;
}

void Put(Bytes& bytes, const ListedField& field, std::uint32_t value) {
  std::memcpy(bytes.data() + field.offset, &value, static_cast<std::size_t>(field.Size()));
}

// What a field holds for given words.
std::uint32_t Loaded(const ListedField& field, const Words& words) {
  const auto word = static_cast<std::size_t>(field.word);
  if (field.kind == "long") return std::uint32_t{words[word]} * 65536 + words[word + 1];
  if (field.kind == "inverted") return words[word] == 0 ? 1 : 0;
  if (field.kind == "byte") return words[word] % 256;
  return words[word];
}

// What becomes of the words when the field is to hold the value.
void Store(const ListedField& field, std::uint32_t value, Words& words) {
  const auto word = static_cast<std::size_t>(field.word);
  if (field.kind == "long") {
    words[word] = static_cast<std::uint16_t>(value / 65536);
    words[word + 1] = static_cast<std::uint16_t>(value % 65536);
  } else if (field.kind == "inverted") {
    words[word] = value == 0 ? 1 : 0;
  } else if (field.kind == "byte") {
    const std::uint32_t low = value % 256;
    words[word] = static_cast<std::uint16_t>(low < 128 ? low : low + 0xFF00);
  } else {
    words[word] = static_cast<std::uint16_t>(value);
  }
}

// Byte fields from 128 up are written back whenever they are saved; here they are kept below.
void KeepBytesSmall(const ListedRecord& record, LegacyHost& host) {
  for (const ListedField& field : record.fields) {
    if (field.kind == "byte") host.At(field.legacy)[static_cast<std::size_t>(field.word)] &= 0x7F;
  }
}

class PrefRecord : public testing::TestWithParam<ListedRecord> {
 protected:
  const ListedRecord& record = GetParam();
  LegacyHost host;
};

TEST_P(PrefRecord, HasAsManyFieldsAsAreListed) {
  EXPECT_EQ(CountFields(record.tag), static_cast<int>(record.fields.size()));
}

TEST_P(PrefRecord, LoadsEveryFieldFromItsWord) {
  Bytes expected(record.Extent(), kUntouched);
  for (const ListedField& field : record.fields) Put(expected, field, Loaded(field, host.At(field.legacy)));
  EXPECT_EQ(Load(record), expected);
}

TEST_P(PrefRecord, LoadsTruthFromAZeroWord) {
  for (const ListedField& field : record.fields) host.At(field.legacy) = {};
  const Bytes bytes = Load(record);
  for (const ListedField& field : record.fields) EXPECT_EQ(ValueAt(bytes, field), field.kind == "inverted" ? 1u : 0u);
}

TEST_P(PrefRecord, AsksForEachLegacyRecordOnceInTheOrderOfTheFields) {
  Load(record);
  EXPECT_THAT(host.loads, ElementsAreArray(record.LegacyRecords()));
  host.loads.clear();
  Save(record, Bytes(record.Extent()));
  EXPECT_THAT(host.loads, ElementsAreArray(record.LegacyRecords()));
}

TEST_P(PrefRecord, SavesNothingAfterALoad) {
  KeepBytesSmall(record, host);
  EXPECT_EQ(Save(record, Load(record)), 1);
  EXPECT_THAT(host.saves, IsEmpty());
}

TEST_P(PrefRecord, SavesAFieldThatChangesToItsWordsAlone) {
  KeepBytesSmall(record, host);
  const Bytes before = Load(record);
  for (const ListedField& field : record.fields) {
    Bytes bytes = before;
    // Two different halves; for a truth value, the other truth; for a byte, another one below 128.
    const std::uint32_t value = field.kind == "inverted" ? 1 - ValueAt(before, field)
                                : field.kind == "byte"   ? ValueAt(before, field) ^ 0x11
                                                         : ValueAt(before, field) ^ 0x00430021;
    Put(bytes, field, value);
    const Words unchanged = host.At(field.legacy);
    Words expected = unchanged;
    Store(field, ValueAt(bytes, field), expected);
    host.saves.clear();

    EXPECT_EQ(Save(record, bytes), 1);
    EXPECT_THAT(host.saves, testing::ElementsAre(field.legacy)) << "offset " << field.offset;
    EXPECT_EQ(host.At(field.legacy), expected) << "offset " << field.offset;
    EXPECT_EQ(Load(record), bytes) << "offset " << field.offset;

    host.At(field.legacy) = unchanged;
  }
}

TEST_P(PrefRecord, LoadsWhatWasSaved) {
  ExpectHolds("every field comes back", [this] {
    Bytes bytes = Load(record);
    for (const ListedField& field : record.fields) {
      const auto value = *rc::gen::arbitrary<std::uint32_t>();
      Put(bytes, field, field.kind == "inverted" ? value % 2 : field.kind == "byte" ? value % 256 : value);
    }
    RC_ASSERT(Save(record, bytes) == 1);
    RC_ASSERT(Load(record) == bytes);
  });
}

TEST_P(PrefRecord, HasFieldsThatDoNotOverlap) {
  const Bytes overZeros = LoadOver(record.tag, 0x00);
  const int left = CountDifferent(overZeros, LoadOver(record.tag, 0xFF));
  const int written = static_cast<int>(overZeros.size()) - left;
  EXPECT_EQ(written, ReportedSize(record.tag)) << "which is the sum of the fields' sizes";
}

TEST_P(PrefRecord, ReportsTheSizesOfItsFields) {
  int sum = 0;
  for (const ListedField& field : record.fields) sum += field.Size();
  EXPECT_EQ(ReportedSize(record.tag), sum);
  EXPECT_EQ(ReportedSize(record.tag), record.size);
  EXPECT_THAT(host.loads, IsEmpty());
}

TEST_P(PrefRecord, NeedsAPlaceForItsSize) {
  EDataKey key{0, 0};
  Bytes bytes(record.Extent());
  EXPECT_EQ(BX_LoadEData(Tag(record.tag), &key, bytes.data(), nullptr, kBrvVersion), 0);
  EXPECT_THAT(host.loads, IsEmpty());
}

TEST_P(PrefRecord, IsLoadedWholeWhateverTheRoom) {
  EDataKey key{0, 0};
  Bytes bytes(record.Extent(), kUntouched);
  std::int32_t size = 0;
  EXPECT_EQ(BX_LoadEData(Tag(record.tag), &key, bytes.data(), &size, kBrvVersion), 1);
  EXPECT_EQ(bytes, Load(record));
}

TEST_P(PrefRecord, IsSavedFromTwoBytesAField) {
  const auto least = static_cast<std::uint32_t>(2 * record.fields.size());
  EDataKey key{0, 0};
  Bytes bytes = Load(record);
  EXPECT_EQ(BX_SaveEData(Tag(record.tag), &key, bytes.data(), least - 1, kBrvVersion), 0);
  EXPECT_EQ(BX_SaveEData(Tag(record.tag), &key, nullptr, least, kBrvVersion), 0);
  EXPECT_EQ(BX_SaveEData(Tag(record.tag), &key, bytes.data(), least, kBrvVersion), 1);
}

TEST_P(PrefRecord, CountsAsLoadedAndSavedWhenTheHostFails) {
  host.fails = true;
  Bytes expected(record.Extent(), kUntouched);
  for (const ListedField& field : record.fields) Put(expected, field, field.kind == "inverted" ? 1 : 0);
  EXPECT_EQ(Load(record), expected);
  EXPECT_EQ(Save(record, Bytes(record.Extent(), 1)), 1);
  EXPECT_THAT(host.saves, ElementsAreArray(record.LegacyRecords()));
}

// Each legacy record in turn, and every other one at once.
std::vector<std::set<Address>> SomeOf(const std::vector<Address>& addresses) {
  std::vector<std::set<Address>> choices(1);
  for (std::size_t i = 0; i < addresses.size(); ++i) {
    choices.push_back({addresses[i]});
    if (i % 2 == 1) choices[0].insert(addresses[i]);
  }
  return choices;
}

TEST_P(PrefRecord, LoadsZeroWordsFromTheLegacyRecordsThatFail) {
  ASSERT_GT(record.LegacyRecords().size(), 1u);
  for (const std::set<Address>& failing : SomeOf(record.LegacyRecords())) {
    Bytes expected(record.Extent(), kUntouched);
    for (const ListedField& field : record.fields) {
      Put(expected, field, Loaded(field, failing.contains(field.legacy) ? Words{} : host.At(field.legacy)));
    }
    host.failingLoads = failing;
    EXPECT_EQ(Load(record), expected);
  }
}

TEST_P(PrefRecord, SavesTheLegacyRecordsThatFailToLoadOverZeroWords) {
  KeepBytesSmall(record, host);
  const Bytes bytes = Load(record);
  for (const std::set<Address>& failing : SomeOf(record.LegacyRecords())) {
    std::map<Address, Words> expected;
    for (const ListedField& field : record.fields) {
      Words& words = expected.try_emplace(field.legacy, host.At(field.legacy)).first->second;
      if (failing.contains(field.legacy)) words = {};
    }
    for (const ListedField& field : record.fields) {
      if (failing.contains(field.legacy)) Store(field, ValueAt(bytes, field), expected[field.legacy]);
    }
    const std::map<Address, Words> unchanged = host.All();
    host.failingLoads = failing;
    host.saves.clear();
    EXPECT_EQ(Save(record, bytes), 1);
    EXPECT_THAT(host.saves, testing::UnorderedElementsAreArray(failing));
    EXPECT_EQ(host.All(), expected);
    for (const auto& [address, words] : unchanged) host.At(address) = words;
  }
}

TEST_P(PrefRecord, SavesTheOtherLegacyRecordsWhereSomeFail) {
  for (const std::set<Address>& failing : SomeOf(record.LegacyRecords())) {
    for (const Address& address : record.LegacyRecords()) host.At(address) = {};
    std::map<Address, Words> expected = host.All();
    const Bytes bytes(record.Extent(), 0x01);
    for (const ListedField& field : record.fields) {
      if (!failing.contains(field.legacy)) Store(field, ValueAt(bytes, field), expected[field.legacy]);
    }
    host.failingSaves = failing;
    host.saves.clear();
    EXPECT_EQ(Save(record, bytes), 1);
    EXPECT_THAT(host.saves, ElementsAreArray(record.LegacyRecords()));
    EXPECT_EQ(host.All(), expected);
  }
}

TEST_P(PrefRecord, CarriesTheCallersVersionOnLoadsAndItsOwnOnSaves) {
  EDataKey key{0, 0};
  Bytes bytes(record.Extent(), 1);
  std::int32_t size = record.size;
  BX_LoadEData(Tag(record.tag), &key, bytes.data(), &size, 0x12345678);
  EXPECT_THAT(host.loadVersions, testing::Each(0x12345678));
  host.loadVersions.clear();
  bytes.assign(bytes.size(), 1);
  BX_SaveEData(Tag(record.tag), &key, bytes.data(), static_cast<std::uint32_t>(bytes.size()), 0x12345678);
  EXPECT_THAT(host.loadVersions, testing::Each(0x12345678));
  EXPECT_THAT(host.saveVersions, testing::Each(kBrvVersion));
  EXPECT_FALSE(host.saveVersions.empty());
}

INSTANTIATE_TEST_SUITE_P(All, PrefRecord, testing::ValuesIn(ListedRecords()),
                         [](const auto& tested) { return tested.param.name; });

// If one word alone is set, what changes shows which record has a field of it. A record whose fields shared one
// would have fewer than two bytes a word.
TEST(PrefRecords, ShareNoWordOfALegacyRecord) {
  LegacyHost host;
  std::map<std::pair<Address, std::size_t>, std::string> owners;
  for (const ListedRecord& record : ListedRecords()) {
    host.loads.clear();
    LoadOver(record.tag, 0);
    const std::vector<Address> addresses = host.loads;
    for (const Address& address : addresses) host.At(address) = {};
    const Bytes ofZeros = LoadOver(record.tag, 0);
    int words = 0;
    for (const Address& address : addresses) {
      for (std::size_t word = 0; word < Words().size(); ++word) {
        host.At(address)[word] = 0x0102;
        const bool isUsed = LoadOver(record.tag, 0) != ofZeros;
        host.At(address)[word] = 0;
        if (!isUsed) continue;
        ++words;
        const auto [found, isNew] = owners.emplace(std::make_pair(address, word), record.name);
        EXPECT_TRUE(isNew) << record.name << " shares a word with " << found->second;
      }
    }
    EXPECT_EQ(2 * words, ReportedSize(record.tag)) << record.name;
  }
  EXPECT_FALSE(owners.empty());
}

}  // namespace
