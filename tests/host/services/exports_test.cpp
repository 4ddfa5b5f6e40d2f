// The functions that brvhost exports to extensions, by their prototypes: what they return, and what they return when
// there is no memory. Every allocation of this program can be made to fail.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "BrvEDK/Source/brevixpdk.h"
#include "BrvEDK/Source/convention.h"
#include "BrvEDK/Source/recordtag.h"
#include "BrvEDK/Source/stringids.h"
#include "host/services/edatastore.h"
#include "host/services/session.h"
#include "tests/host/scores.h"

namespace {

int allocationsLeft = -1;  // until they fail; -1: they do not

void* Allocate(std::size_t size) {
  if (allocationsLeft == 0) throw std::bad_alloc();
  if (allocationsLeft > 0) --allocationsLeft;
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
// The sanitizers' own would not take its memory from here.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return Allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace brvhost {
namespace {

constexpr uint32 kTag = RecordTag("TEST");

// A user who can be out of reach.
class FarUser : public User {
 public:
  void Show(const std::string& text) override {
    CheckReach();
    shown = text;
  }
  bool Ask(const std::string& question) override {
    Show(question);
    return agrees;
  }
  void ShowProgress(std::int64_t newDone, std::int64_t newTotal) override {
    CheckReach();
    done = newDone;
    total = newTotal;
  }
  void EndProgress() override {
    CheckReach();
    ++ended;
  }

  bool inReach = true;
  bool agrees = true;
  std::string shown;
  std::int64_t done = 0;
  std::int64_t total = 0;
  int ended = 0;

 private:
  void CheckReach() const {
    if (!inReach) throw std::runtime_error("nobody is there");
  }
};

class Exports : public testing::Test {
 protected:
  // Lets the first allocation of the call fail, then the second, until it has all that it needs. Every answer but
  // the last has to be `failure`, with `check` called after it.
  template <class Result>
  Result CallWithoutMemory(Result failure, const std::function<void()>& check, const std::function<Result()>& call) {
    for (int allowed = 0;; ++allowed) {
      allocationsLeft = allowed;
      const Result answer = call();
      const bool failed = allocationsLeft == 0 && answer == failure;
      allocationsLeft = -1;
      if (!failed) {
        EXPECT_GT(allowed, 0) << "it takes no memory";
        EXPECT_NE(answer, failure);
        return answer;
      }
      check();
      EXPECT_THROW(session.RethrowFailure(), std::bad_alloc);
    }
  }

  EXTGF2005a* Load() { return BX_LoadTGF(0, 1, 1, 0, kLoadFlag, kBrvVersion); }
  // The size of the record, or -1.
  std::int64_t SizeOfRecord() {
    const EDataStore::Bytes* const record = document.Records().Find(kTag, {1, 2});
    return record == nullptr ? -1 : static_cast<std::int64_t>(record->size());
  }

  Extension extension{BRV_BINARY_DIR "/LegerLines.bundle"};
  FarUser user;
  Score score = ReadMusicXml(Partwise(Measure(Note() + Note("<chord/>") + Note())));
  OpenDocument document{score};
  Session session{extension, document, user};
};

TEST_F(Exports, ReportThatAFrameWasFreed) {
  EXTGF2005a* const frame = Load();
  EXPECT_EQ(BX_FreeTGF(frame, kBrvVersion), 1);
  EXPECT_EQ(BX_FreeTGF(frame, kBrvVersion), 0);
}

TEST_F(Exports, ReportThatProgressEnded) {
  void* const display = BX_StartMassEdit(nullptr, 10, kBrvVersion);
  EXPECT_EQ(BX_MassEditProgress(display, 4 | 0x70000, 0, 0, -1, kBrvVersion), 1);
  EXPECT_EQ(user.done, 4);
  EXPECT_EQ(user.total, 10);
  EXPECT_EQ(BX_EndMassEdit(display, 0, kBrvVersion), 1);
  EXPECT_EQ(BX_EndMassEdit(display, 0, kBrvVersion), 0);
  EXPECT_EQ(BX_MassEditProgress(display, 1, 0, 0, -1, kBrvVersion), 0);
}

TEST_F(Exports, CountEdits) {
  EXPECT_EQ(BX_StartBrevixEdit(nullptr, kBrvVersion), 1);
  EXPECT_EQ(BX_StartBrevixEdit_UTF16(nullptr, kBrvVersion), 1);
  EXPECT_EQ(document.EditDepth(), 2);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 1);
  BX_CancelBrevixEdit(kBrvVersion);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 0);
}

TEST_F(Exports, ShowWhatIsDoneInAllUntilProgressEnds) {
  void* const display = BX_StartMassEdit(nullptr, 10, kBrvVersion);
  EXPECT_EQ(BX_MassEditProgress(display, 4, 0, 0, -1, kBrvVersion), 1);
  EXPECT_EQ(BX_MassEditProgress(display, 3, 0, 0, -1, kBrvVersion), 1);
  EXPECT_EQ(user.done, 7);
  EXPECT_EQ(BX_MassEditProgress(display, -2, 0, 0, -1, kBrvVersion), 1);
  EXPECT_EQ(user.done, 5);
  EXPECT_EQ(user.ended, 0);
  EXPECT_EQ(BX_EndMassEdit(display, 0, kBrvVersion), 1);
  EXPECT_EQ(user.ended, 1);
}

TEST_F(Exports, KnowNoOtherDisplayThanTheirOwn) {
  int other = 0;
  BX_StartMassEdit(nullptr, 10, kBrvVersion);
  EXPECT_EQ(BX_MassEditProgress(&other, 4, 0, 0, -1, kBrvVersion), 0);
  EXPECT_EQ(BX_EndMassEdit(&other, 0, kBrvVersion), 0);
  EXPECT_EQ(BX_MassEditProgress(nullptr, 4, 0, 0, -1, kBrvVersion), 0);
  EXPECT_EQ(BX_EndMassEdit(nullptr, 0, kBrvVersion), 0);
  EXPECT_EQ(user.done, 0);
  EXPECT_TRUE(session.ShowsProgress());
  EXPECT_EQ(document.MisusesSoFar().Texts(),
            (std::vector<std::string>{"moves a progress display that it has not started (2 times)",
                                      "ends a progress display that it has not started (2 times)"}));
}

TEST_F(Exports, ReturnWhatTheUserAnswers) {
  EXPECT_EQ(BX_AlertMessage(nullptr, kAlertQuestion, 0, "Yes?", kBrvVersion), 1);
  user.agrees = false;
  EXPECT_EQ(BX_AlertMessage(nullptr, kAlertQuestion, 0, "No?", kBrvVersion), 0);
  EXPECT_EQ(user.shown, "No?");
  EXPECT_EQ(BX_AlertMessage(nullptr, kAlertMessage, 0, "Seen", kBrvVersion), 1) << "no question";
}

TEST_F(Exports, ShowEachLayerOfTheScoreWhereNoneAreChosen) {
  for (int layer = 0; layer < 4; ++layer) EXPECT_EQ(BX_GetShowLayer(layer, kBrvVersion), 1) << layer;
  for (const int layer : {-1, 4, 5}) EXPECT_EQ(BX_GetShowLayer(layer, kBrvVersion), 0) << layer;
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 4);
}

TEST_F(Exports, KeepTheFirstOfTheirFailures) {
  user.inReach = false;
  BX_AlertMessage(nullptr, kAlertMessage, 0, "x", kBrvVersion);
  const std::string text(100, 'x');
  allocationsLeft = 0;
  BX_AlertMessage(nullptr, kAlertMessage, 0, text.c_str(), kBrvVersion);
  allocationsLeft = -1;
  EXPECT_THROW(session.RethrowFailure(), std::runtime_error);
}

TEST_F(Exports, EndAnEditOnceForEachStart) {
  BX_StartBrevixEdit(nullptr, kBrvVersion);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 1);
  EXPECT_EQ(document.EditDepth(), 0);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 0);
}

TEST_F(Exports, AreThoseOfAMac) { EXPECT_EQ(BX_IsMachO(kBrvVersion), 1); }

TEST_F(Exports, GiveNoRegionWhereNoneIsSelected) {
  EREGION region{};
  region.startStaff = 77;
  EXPECT_EQ(BX_GetCurERegions(&region, &region, &region, kBrvVersion), 0);
  EXPECT_EQ(+region.startStaff, 77);
}

TEST_F(Exports, WalkTheRecordsOfATagBothWays) {
  EDataKey key{1, 2};
  document.Records().Save(kTag, {1, 2}, {10});
  document.Records().Save(kTag, {1, 3}, {11, 12, 13});
  char bytes[] = {9, 9, 9};
  EXPECT_EQ(BX_NextEData(kTag, &key, bytes, 2, kBrvVersion), 1);
  EXPECT_EQ(key.recordNumber, 1);
  EXPECT_EQ(key.recordIndex, 3);
  EXPECT_EQ(std::string(bytes, 3), "\x0B\x0C\x09") << "as much as fits";
  EXPECT_EQ(BX_NextEData(kTag, &key, bytes, 3, kBrvVersion), 0);
  EXPECT_EQ(key.recordIndex, 3);
  EXPECT_EQ(BX_PreviousEData(kTag, &key, bytes, 3, kBrvVersion), 1);
  EXPECT_EQ(key.recordNumber, 1);
  EXPECT_EQ(key.recordIndex, 2);
  EXPECT_EQ(std::string(bytes, 3), "\x0A\x0C\x09") << "all that there is";
  EXPECT_EQ(BX_PreviousEData(kTag, &key, bytes, 3, kBrvVersion), 0);
}

TEST_F(Exports, ReportTheSizeOfARecordHoweverMuchFits) {
  EDataKey key{1, 2};
  document.Records().Save(kTag, {1, 2}, {10, 11, 12});
  char bytes[] = {9, 9, 9, 9};
  std::int32_t size = 2;
  EXPECT_EQ(BX_LoadEData(kTag, &key, bytes, &size, kBrvVersion), 1);
  EXPECT_EQ(size, 3);
  EXPECT_EQ(std::string(bytes, 4), "\x0A\x0B\x09\x09");
  size = -1;
  EXPECT_EQ(BX_LoadEData(kTag, &key, bytes, &size, kBrvVersion), 1);
  EXPECT_EQ(size, 3);
  EXPECT_EQ(std::string(bytes, 4), "\x0A\x0B\x09\x09");
  EXPECT_EQ(BX_LoadEData(kTag, &key, bytes, nullptr, kBrvVersion), 0);
  EXPECT_EQ(BX_LoadEData(kTag, nullptr, bytes, &size, kBrvVersion), 0);
}

TEST_F(Exports, DeleteARecordOnce) {
  EDataKey key{1, 2};
  document.Records().Save(kTag, {1, 2}, {10});
  EXPECT_EQ(BX_DeleteEData(kTag, &key, kBrvVersion), 1);
  EXPECT_EQ(SizeOfRecord(), -1);
  EXPECT_EQ(BX_DeleteEData(kTag, &key, kBrvVersion), 0);
}

TEST_F(Exports, TakeRecordsUpToSixteenMegabytes) {
  constexpr int kMost = 16 * 1024 * 1024;
  EDataKey key{1, 2};
  EXPECT_EQ(BX_SaveEData(kTag, &key, nullptr, kMost + 1, kBrvVersion), 0);
  EXPECT_EQ(BX_CreateEData(kTag, &key, nullptr, kMost + 1, kBrvVersion), 0);
  EXPECT_EQ(SizeOfRecord(), -1);
  EXPECT_EQ(BX_CreateEData(kTag, &key, nullptr, kMost, kBrvVersion), 1);
  EXPECT_EQ(SizeOfRecord(), kMost);
  EXPECT_EQ(BX_SaveEData(kTag, &key, nullptr, kMost, kBrvVersion), 1);
}

TEST_F(Exports, TakeTheSizesOfRecordsAsTheyAre) {
  EDataKey key{1, 2};
  EXPECT_EQ(BX_CreateEData(kTag, &key, nullptr, -1, kBrvVersion), 0);
  EXPECT_EQ(BX_SaveEData(kTag, &key, nullptr, 0xFFFFFFFF, kBrvVersion), 0);
  EXPECT_EQ(SizeOfRecord(), -1);
}

TEST_F(Exports, LoadNoFrameWithoutMemory) {
  const auto check = [&] { EXPECT_EQ(document.LoadedFrames(), 0u); };
  EXTGF2005a* const frame = CallWithoutMemory<EXTGF2005a*>(nullptr, check, [&] { return Load(); });
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->entryCount, 2);
}

TEST_F(Exports, FreeFramesWithoutMemory) {
  EXTGF2005a* const frames[] = {Load(), Load(), Load()};
  for (EXTGF2005a* const frame : frames) {
    allocationsLeft = 0;
    const HostResult answer = BX_FreeTGF(frame, kBrvVersion);
    allocationsLeft = -1;
    EXPECT_EQ(answer, 1);
  }
  EXPECT_EQ(document.LoadedFrames(), 0u);
}

TEST_F(Exports, StartNoEditWithoutMemory) {
  for (const auto start : {BX_StartBrevixEdit, BX_StartBrevixEdit_UTF16}) {
    const auto check = [&] { EXPECT_EQ(document.EditDepth(), 0); };
    CallWithoutMemory<HostResult>(0, check, [&] { return start(nullptr, kBrvVersion); });
    EXPECT_EQ(document.EditDepth(), 1);
    BX_CancelBrevixEdit(kBrvVersion);
  }
}

TEST_F(Exports, SaveNoRecordWithoutMemory) {
  EDataKey key{1, 2};
  char bytes[8] = {};
  const auto save = [&](uint32 size) { return BX_SaveEData(kTag, &key, bytes, size, kBrvVersion); };
  const auto isMissing = [&] { EXPECT_EQ(SizeOfRecord(), -1); };
  CallWithoutMemory<int>(0, isMissing, [&] { return save(5); });
  EXPECT_EQ(SizeOfRecord(), 5);
  const auto isAsBefore = [&] { EXPECT_EQ(SizeOfRecord(), 5); };
  CallWithoutMemory<int>(0, isAsBefore, [&] { return save(8); });
  EXPECT_EQ(SizeOfRecord(), 8);
}

TEST_F(Exports, CreateNoRecordWithoutMemory) {
  EDataKey key{1, 2};
  const auto create = [&] { return BX_CreateEData(kTag, &key, nullptr, 6, kBrvVersion); };
  const auto isMissing = [&] { EXPECT_EQ(SizeOfRecord(), -1); };
  CallWithoutMemory<int>(0, isMissing, create);
  EXPECT_EQ(SizeOfRecord(), 6);
}

TEST_F(Exports, ShowNoAlertWithoutMemory) {
  const std::string text(100, 'x');
  const std::u16string units(100, u'x');
  const auto nothing = [&] { EXPECT_EQ(user.shown, ""); };
  const auto showBytes = [&] { return BX_AlertMessage(nullptr, kAlertMessage, 0, text.c_str(), kBrvVersion); };
  CallWithoutMemory<int>(0, nothing, showBytes);
  EXPECT_EQ(user.shown, text);
  user.shown.clear();
  const auto askUnits = [&] { return BX_AlertMessage_UTF16(nullptr, kAlertQuestion, 0, units.c_str(), kBrvVersion); };
  CallWithoutMemory<int>(0, nothing, askUnits);
  EXPECT_EQ(user.shown, text);
}

TEST_F(Exports, ReturnFailureWhenTheUserIsOutOfReach) {
  void* const display = BX_StartMassEdit(nullptr, 10, kBrvVersion);
  user.inReach = false;
  EXPECT_EQ(BX_MassEditProgress(display, 1, 0, 0, -1, kBrvVersion), 0);
  EXPECT_EQ(BX_AlertMessage(nullptr, kAlertQuestion, 0, "Yes?", kBrvVersion), 0);
  EXPECT_EQ(BX_AlertMessage_UTF16(nullptr, kAlertMessage, StringID(20100, 2), nullptr, kBrvVersion), 0);
  EXPECT_EQ(BX_EndMassEdit(display, 0, kBrvVersion), 0);
  EXPECT_FALSE(session.ShowsProgress());
  EXPECT_THROW(session.RethrowFailure(), std::runtime_error);
}

TEST_F(Exports, KeepNoFailureWhereThereWasNone) {
  EXPECT_NE(Load(), nullptr);
  EXPECT_NO_THROW(session.RethrowFailure());
}

// A score of four parts: of one staff and two instruments, of two staves and three instruments, of one staff and none,
// of one staff and one instrument. Part of it is selected, and one layer shown.
class ExportsOfASelection : public testing::Test {
 protected:
  ExportsOfASelection() { session.Select({Selected(), {{2, 2}}}); }

  static EREGION Selected() {
    EREGION region{};
    region.startStaff = 2;
    region.endStaff = 3;
    region.startMeasure = 4;
    region.endMeasure = 5;
    region.startPosition = 6;
    region.endPosition = 7;
    return region;
  }

  static int SlotToInst(int slot, int staff) { return BX_SlotToInst(slot, staff, kBrvVersion); }
  static int InstToSlot(int instrument, int staff) { return BX_InstToSlot(instrument, staff, kBrvVersion); }

  Extension extension{BRV_BINARY_DIR "/LegerLines.bundle"};
  FarUser user;
  Score score = ReadMusicXml(
      "<score-partwise><part-list>"
      "<score-part id='A'><score-instrument id='I1'/><score-instrument id='I2'/></score-part>"
      "<score-part id='B'><score-instrument id='I3'/><score-instrument id='I4'/><score-instrument "
      "id='I5'/></score-part>"
      "<score-part id='C'/><score-part id='D'><score-instrument id='I6'/></score-part></part-list><part "
      "id='A'><measure/></part>"
      "<part id='B'><measure><attributes><staves>2</staves></attributes></measure></part>"
      "<part id='C'><measure/></part><part id='D'><measure/></part></score-partwise>");
  OpenDocument document{score};
  Session session{extension, document, user};
};

TEST_F(ExportsOfASelection, FillEachRecordWithTheRegion) {
  EREGION regions[3] = {};
  EXPECT_EQ(BX_GetCurERegions(&regions[0], &regions[1], &regions[2], kBrvVersion), 1);
  for (const EREGION& region : regions) {
    EXPECT_EQ(+region.startStaff, 2);
    EXPECT_EQ(+region.endStaff, 3);
    EXPECT_EQ(+region.startMeasure, 4);
    EXPECT_EQ(+region.endMeasure, 5);
    EXPECT_EQ(+region.startPosition, 6);
    EXPECT_EQ(+region.endPosition, 7);
  }
}

TEST_F(ExportsOfASelection, FillNoRecordThatIsNotAskedFor) {
  EREGION region{};
  EXPECT_EQ(BX_GetCurERegions(nullptr, nullptr, &region, kBrvVersion), 1);
  EXPECT_EQ(+region.startStaff, 2);
  EXPECT_EQ(BX_GetCurERegions(nullptr, nullptr, nullptr, kBrvVersion), 1);
}

TEST_F(ExportsOfASelection, KnowTheLayersThatAreShown) {
  for (const int layer : {-1, 0, 2, 3, 4}) EXPECT_EQ(BX_GetShowLayer(layer, kBrvVersion), 0) << layer;
  EXPECT_EQ(BX_GetShowLayer(1, kBrvVersion), 1);
  EXPECT_EQ(BX_GetShowLayer(0x50001, kBrvVersion), 1);
}

TEST_F(ExportsOfASelection, FollowTheSelection) {
  EREGION region = Selected();
  region.startStaff = 3;
  session.Select({region, {{1, 1}, {3, 3}}});
  EREGION record{};
  EXPECT_EQ(BX_GetCurERegions(&record, nullptr, nullptr, kBrvVersion), 1);
  EXPECT_EQ(+record.startStaff, 3);
  for (const int layer : {0, 2}) EXPECT_EQ(BX_GetShowLayer(layer, kBrvVersion), 1) << layer;
  for (const int layer : {1, 3}) EXPECT_EQ(BX_GetShowLayer(layer, kBrvVersion), 0) << layer;
}

TEST_F(ExportsOfASelection, CountInstrumentsThroughAllParts) {
  for (const auto& [staff, before, count] :
       {std::tuple{0, 0, 0}, {1, 0, 2}, {2, 2, 3}, {3, 2, 3}, {4, 5, 0}, {5, 5, 1}, {6, 0, 0}, {65535, 0, 0}}) {
    SCOPED_TRACE(staff);
    for (int slot = -1; slot <= 7; ++slot) {
      const bool isOne = slot >= 1 && slot <= count;
      EXPECT_EQ(SlotToInst(slot, staff), isOne ? before + slot : 0) << slot;
      EXPECT_EQ(InstToSlot(before + slot, staff), isOne ? slot : 0) << slot;
    }
  }
  EXPECT_EQ(InstToSlot(0x70005, 0x30003), 3);
  EXPECT_EQ(SlotToInst(0x70003, 0x30003), 5);
}

TEST(ExportsWithoutASession, ReturnWhatAHostDoesThatCanDoNothing) {
  EDataKey key{1, 2};
  std::int32_t size = 4;
  EREGION region{};
  EXPECT_EQ(BX_IsMachO(kBrvVersion), 1);
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 4);
  EXPECT_EQ(BX_LoadTGF(0, 1, 1, 0, kLoadFlag, kBrvVersion), nullptr);
  EXPECT_EQ(BX_SaveTGF(nullptr, kBrvVersion), 0);
  EXPECT_EQ(BX_FreeTGF(nullptr, kBrvVersion), 0);
  EXPECT_EQ(BX_GetShowLayer(0, kBrvVersion), 0);
  EXPECT_EQ(BX_StartBrevixEdit(nullptr, kBrvVersion), 0);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 0);
  BX_CancelBrevixEdit(kBrvVersion);
  EXPECT_EQ(BX_StartMassEdit(nullptr, 1, kBrvVersion), nullptr);
  EXPECT_EQ(BX_MassEditProgress(nullptr, 1, 0, 0, -1, kBrvVersion), 0);
  EXPECT_EQ(BX_EndMassEdit(nullptr, 0, kBrvVersion), 0);
  EXPECT_EQ(BX_GetCurERegions(&region, &region, &region, kBrvVersion), 0);
  EXPECT_EQ(BX_SlotToInst(1, 1, kBrvVersion), 0);
  EXPECT_EQ(BX_InstToSlot(1, 1, kBrvVersion), 0);
  EXPECT_EQ(BX_AlertMessage(nullptr, kAlertMessage, 0, "x", kBrvVersion), 0);
  EXPECT_EQ(BX_AlertMessage_UTF16(nullptr, kAlertMessage, 0, u"x", kBrvVersion), 0);
  EXPECT_EQ(BX_LoadEData(kTag, &key, nullptr, &size, kBrvVersion), 0);
  EXPECT_EQ(BX_SaveEData(kTag, &key, nullptr, 4, kBrvVersion), 0);
  EXPECT_EQ(BX_CreateEData(kTag, &key, nullptr, 4, kBrvVersion), 0);
  EXPECT_EQ(BX_DeleteEData(kTag, &key, kBrvVersion), 0);
  EXPECT_EQ(BX_PreviousEData(kTag, &key, nullptr, 0, kBrvVersion), 0);
  EXPECT_EQ(BX_NextEData(kTag, &key, nullptr, 0, kBrvVersion), 0);
}

}  // namespace
}  // namespace brvhost
