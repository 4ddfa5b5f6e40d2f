// Typed functions for records.
#include "documentspecs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "recordstore.h"
#include "textblocks.h"

namespace {

using testing::Each;
using testing::ElementsAre;

class Specs : public testing::Test {
 protected:
  RecordStore store;
};

template <class Record>
Record Filled() {
  Record record;
  std::memset(&record, 0xA5, sizeof(record));
  return record;
}

template <class Record>
RecordStore::Bytes BytesOf(const Record& record) {
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(&record);
  return {bytes, bytes + sizeof(record)};
}

// Loads a record that the host has ten bytes of, and one that it does not have.
template <class Record, class Get>
void CheckGetter(RecordStore& store, std::uint32_t tag, int number, Get get) {
  store.Put(tag, number, RecordStore::Bytes(10, 7));
  auto record = Filled<Record>();
  EXPECT_NE(get(number, &record), 0);
  RecordStore::Bytes expected(sizeof(Record), 0xA5);
  std::fill_n(expected.begin(), 10, std::uint8_t{7});
  EXPECT_EQ(BytesOf(record), expected) << "the rest stays";
  EXPECT_THAT(store.requests, ElementsAre(Request{tag, number & 0xFFFF, 0, sizeof(Record), true, 0x19500000}));

  auto missing = Filled<Record>();
  EXPECT_EQ(get(number + 1, &missing), 0);
  EXPECT_THAT(BytesOf(missing), Each(0xA5));
}

TEST_F(Specs, OfMeasuresHaveThirtyBytes) {
  CheckGetter<EDTMeasureSpec2014>(store, 0x534F4D53, 5, BXUtilGetMeasureSpec);
}

TEST_F(Specs, OfStavesHave136Bytes) { CheckGetter<EDTStaffSpec2014>(store, 0x534F4953, 5, BXUtilGetStaffSpec); }

TEST_F(Specs, OfPagesHave22Bytes) { CheckGetter<EDTPageSpec>(store, 0x534F5053, 5, BXUtilGetPageSpec); }

TEST_F(Specs, OfTheDocumentHave66Bytes) {
  store.Put(0x70666770, 0, RecordStore::Bytes(66, 7));
  auto prefs = Filled<EDTGeneralPrefs2008>();
  EXPECT_EQ(BXUtilGetGeneralPrefs(&prefs), 1);
  EXPECT_THAT(BytesOf(prefs), Each(7));
  EXPECT_THAT(store.requests, ElementsAre(Request{0x70666770, 0, 0, 66, true, 0x19500000}));
}

TEST_F(Specs, OfGroupsHave36BytesAndAKeyOfThreeWords) {
  int third = -1;
  store.host.On("BX_LoadEData", [&](const HostCall& call) {
    EXPECT_EQ(call.arguments[0], 0x53444E47u);
    EXPECT_EQ(call.Pointer<std::uint16_t>(1)[0], 3);
    EXPECT_EQ(call.Pointer<std::uint16_t>(1)[1], 0xFFFC);
    third = call.Pointer<std::uint16_t>(1)[2];
    EXPECT_EQ(*call.Pointer<std::int32_t>(3), 36);
    return 1u;
  });
  EDTGroupSpec spec;
  EXPECT_EQ(BXUtilGetGroupSpec(3, -4, &spec), 1);
  EXPECT_EQ(third, 0);
}

TEST_F(Specs, OfTextBlocksAreClearedFirst) {
  store.Put(0x534F5458, 9, RecordStore::Bytes(10, 7));
  auto block = Filled<EDTTextBlock25_4>();
  EXPECT_EQ(BXUtilGetTextBlock(9, &block), 1);
  RecordStore::Bytes expected(30, 0);
  std::fill_n(expected.begin(), 10, std::uint8_t{7});
  EXPECT_EQ(BytesOf(block), expected);
  EXPECT_THAT(store.requests, ElementsAre(Request{0x534F5458, 9, 0, 30, true, 0x19500000}));
  block = Filled<EDTTextBlock25_4>();
  EXPECT_EQ(BXUtilGetTextBlock(8, &block), 0);
  EXPECT_THAT(BytesOf(block), Each(0));
}

TEST_F(Specs, OfMeasuresAreSavedWhole) {
  EDTMeasureSpec2014 spec = {};
  store.host.On("BX_SaveEData", [&](const HostCall& call) {
    EXPECT_EQ(call.arguments[0], 0x534F4D53u);
    EXPECT_EQ(call.Pointer<EDataKey>(1)->recordNumber, 12);
    EXPECT_EQ(call.Pointer<EDataKey>(1)->recordIndex, 0);
    EXPECT_EQ(call.Pointer<void>(2), &spec);
    EXPECT_EQ(call.arguments[3], 30u);
    EXPECT_EQ(call.arguments[4], 0x19500000u);
    return 0x10003u;
  });
  EXPECT_EQ(BXUtilPutMeasureSpec(12, &spec), 3);
}

TEST_F(Specs, GiveTheHostsAnswerAsASixteenBitNumber) {
  store.host.Answer("BX_LoadEData", 0x1FFFF);
  EDTPageSpec page;
  EXPECT_EQ(BXUtilGetPageSpec(1, &page), -1);
}

class EmptyMeasure : public Specs {
 protected:
  // A frame of entries with these fourth bytes of their flags.
  EXTGF2005a* Frame(const std::vector<std::uint8_t>& flags) {
    entries.emplace_back(flags.size());
    for (std::size_t i = 0; i < flags.size(); ++i) entries.back()[i].entryFlags[3] = flags[i];
    frames.push_back({});
    frames.back().entries = entries.back().data();
    frames.back().entryCount = static_cast<std::int16_t>(flags.size());
    return &frames.back();
  }
  void Serve(const std::vector<EXTGF2005a*>& layers) {
    store.host.Answer("BX_GetMaxLayers", layers.size());
    store.host.On("BX_LoadTGF", [layers](const HostCall& call) {
      return reinterpret_cast<std::uint64_t>(layers.at(static_cast<std::size_t>(call.Int(3))));
    });
  }
  void SetUp() override { frames.reserve(8); }

  std::vector<std::vector<EXENTRY>> entries;
  std::vector<EXTGF2005a> frames;
};

TEST_F(EmptyMeasure, IsOneWithoutLayers) {
  store.host.Answer("BX_GetMaxLayers", 0);
  EXPECT_EQ(BXUtilIsEmptyMeasure(2, 3, 4), 1);
  store.host.Answer("BX_GetMaxLayers", 0xFFFF);
  EXPECT_EQ(BXUtilIsEmptyMeasure(2, 3, 4), 1);
  EXPECT_EQ(store.host.Count("BX_LoadTGF"), 0);
}

TEST_F(EmptyMeasure, IsOneWithoutFrames) {
  Serve({nullptr, nullptr});
  EXPECT_EQ(BXUtilIsEmptyMeasure(2, 3, 4), 1);
  EXPECT_THAT(store.host.Texts(),
              ElementsAre("BX_GetMaxLayers()", "BX_LoadTGF(2, 3, 4, 0, 1)", "BX_LoadTGF(2, 3, 4, 1, 1)"));
}

TEST_F(EmptyMeasure, IsOneWhoseEntriesLackTheContentBit) {
  Serve({Frame({0xBF, 0xBF}), Frame({})});
  EXPECT_EQ(BXUtilIsEmptyMeasure(2, 3, 4), 1);
}

TEST_F(EmptyMeasure, IsNoneAtTheFirstEntryWithTheContentBit) {
  Serve({Frame({0}), Frame({0, 0x40}), nullptr});
  const int before = LoadedTGFCounter;
  EXPECT_EQ(BXUtilIsEmptyMeasure(2, 3, 4), 0);
  EXPECT_EQ(store.host.Count("BX_LoadTGF"), 2) << "the third layer is not asked for";
  EXPECT_EQ(store.host.Count("BX_FreeTGF"), 0) << "the frames stay loaded";
  EXPECT_EQ(store.host.Count("BX_GetShowLayer"), 0);
  EXPECT_EQ(LoadedTGFCounter, before + 2);
}

TEST_F(Specs, CountSlotsUpToTheFirstWithoutAnInstrument) {
  store.host.On("BX_SlotToInst", [](const HostCall& call) { return call.Int(0) <= 3 ? 100u : 0u; });
  EXPECT_EQ(BXUtilCountIUSlots(-1), 3);
  EXPECT_THAT(store.host.Texts().front(), "BX_SlotToInst(1, 65535)");
  EXPECT_EQ(store.host.Count("BX_SlotToInst"), 4);
  store.host.Answer("BX_SlotToInst", 0);
  EXPECT_EQ(BXUtilCountIUSlots(1), 0);
}

TEST_F(Specs, CountNoMoreSlotsThanThereAreNumbers) {
  store.host.Answer("BX_SlotToInst", 1);
  EXPECT_EQ(BXUtilCountIUSlots(1), 32767);
}

}  // namespace
