// The functions that brvhost exports to extensions, by their prototypes: what they return, and what they return when
// there is no memory. Every allocation of this program can be made to fail.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <new>
#include <stdexcept>

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
    return true;
  }
  void ShowProgress(std::int64_t newDone, std::int64_t newTotal) override {
    CheckReach();
    done = newDone;
    total = newTotal;
  }
  void EndProgress() override { CheckReach(); }

  bool inReach = true;
  std::string shown;
  std::int64_t done = 0;
  std::int64_t total = 0;

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
  Session session{extension, document, user, {}};
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
