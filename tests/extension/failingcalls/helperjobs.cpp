// Jobs of the helpers.
#include <array>

#include "documentspecs.h"
#include "jobs.h"
#include "progress.h"
#include "steadyclock.h"
#include "tests/support/text.h"
#include "tests/util/specs/recordstore.h"
#include "textblocks.h"

namespace {

std::string Ascii(const std::u16string& text) { return {text.begin(), text.end()}; }

// A report of 100 units, updated at 10 and 20, when time enough has passed.
Outcome Report(FailingCalls failing, short16 cancelled) {
  int display = 0;
  RecordingHost host;
  host.Answer("BX_StartMassEdit", reinterpret_cast<std::uint64_t>(&display));
  host.Answer("BX_MassEditProgress", 1);
  host.Answer("BX_EndMassEdit", 1);
  host.Fail(failing);
  tProgressReport report = {};
  std::string text;
  BXUtilPRStart(&report, 100);
  for (const int done : {10, 20}) {
    LetTimePass(700);
    text += std::to_string(BXUtilPRUpdate(&report, done)) + " ";
  }
  BXUtilPREnd(&report, cancelled);
  for (const HostCall& call : host.Calls()) {
    if (call.name == "BX_StartMassEdit") text += call.result == 0 ? "none," : "shown,";
    if (call.name == "BX_MassEditProgress") text += " " + std::to_string(call.Int(1));
    if (call.name == "BX_EndMassEdit") text += " ended " + std::to_string(call.Int(1));
  }
  return {text, host.Calls()};
}

}  // namespace

Outcome ReportProgress(FailingCalls failing) { return Report(failing, 0); }

Outcome ReportProgressUntilCancelled(FailingCalls failing) { return Report(failing, 1); }

// The second of two layers has a note.
Outcome AskForAnEmptyMeasure(FailingCalls failing) {
  std::array<EXENTRY, 2> entries = {};
  entries[1].entryFlags[kContentByte] = kContentBit;
  std::array<EXTGF2005a, 2> frames = {};
  for (std::size_t i = 0; i < frames.size(); ++i) {
    frames[i].entries = &entries[i];
    frames[i].entryCount = 1;
  }
  RecordingHost host;
  host.Answer("BX_GetMaxLayers", frames.size());
  host.On("BX_LoadTGF", [&](const HostCall& call) {
    return reinterpret_cast<std::uint64_t>(&frames.at(static_cast<std::size_t>(call.Int(3))));
  });
  host.Fail(failing);
  const int isEmpty = BXUtilIsEmptyMeasure(1, 1, 1);
  return {isEmpty != 0 ? "empty" : "not empty", host.Calls()};
}

Outcome NameAStaffOfTwoNames(FailingCalls failing) {
  RecordStore store;
  store.PutStaff(1, 5, 6);
  store.PutTextBlock(5, 15);
  store.PutTextBlock(6, 16);
  store.PutText(15, u"Flute");
  store.PutText(16, u"Fl.");
  store.host.Fail(failing);
  std::array<UniChar, 32> name;
  name.fill('-');
  const int length = BXUtilGetStaffName(1, 0, name.data(), static_cast<int>(name.size()));
  return {std::to_string(length) + ": " + Ascii(TextOf(name.data())), store.host.Calls()};
}

Outcome LoadRawText(FailingCalls failing) {
  RecordStore store;
  store.PutText(1, u"text");
  store.host.Fail(failing);
  UniChar* const text = BXUtilLoadRawTextUTF16(1);
  const std::string loaded = text == nullptr ? "null" : Ascii(TextOf(text));
  BXUtilFreeRawText(text);
  return {loaded, store.host.Calls()};
}

Outcome CountThreeSlots(FailingCalls failing) {
  RecordingHost host;
  host.On("BX_SlotToInst", [](const HostCall& call) { return call.Int(0) <= 3; });
  host.Fail(failing);
  return {std::to_string(BXUtilCountIUSlots(1)), host.Calls()};
}
