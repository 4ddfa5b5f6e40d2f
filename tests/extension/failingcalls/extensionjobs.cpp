// Jobs of the extension: its entry points and dialog handlers.
#include <brvplatform.h>

#include <cstring>
#include <deque>

#include "convention.h"
#include "dialoghandlers.h"
#include "jobs.h"
#include "steadyclock.h"
#include "tests/support/copiedbundle.h"
#include "tests/support/text.h"

namespace {

constexpr int kHide = 0;
constexpr int kShow = 1;
constexpr unsigned char kHidden = 0x40;

void HoldCommandPeriod(bool held) {
  BrvPlatformSetModifierFlags(held ? kCommandModifier : 0);
  BrvPlatformSetKeyDown(kPeriodKey, held);
}

// A host with one staff. Each load gives a new frame, and only a save changes the document; a load takes 700 ms, so
// that the command shows its progress.
class OneStaff {
 public:
  // The flags of each measure's entries, in each layer; layers are alike.
  OneStaff(const std::vector<std::vector<unsigned char>>& measures, FailingCalls failing, std::size_t layers = 1)
      : layers_(layers, measures) {
    host_.Answer("BX_GetMaxLayers", layers);
    host_.Answer("BX_GetShowLayer", 1);
    host_.Answer("BX_AlertMessage", kAlertYes);
    host_.Answer("BX_StartMassEdit", reinterpret_cast<std::uint64_t>(this));
    host_.Answer("BX_MassEditProgress", 1);
    host_.On("BX_LoadTGF", [this](const HostCall& call) { return Load(call); });
    host_.On("BX_SaveTGF", [this](const HostCall& call) { return Save(call); });
    host_.Fail(failing);
    region_.startStaff = region_.endStaff = 1;
    region_.startMeasure = 1;
    region_.endMeasure = static_cast<std::int16_t>(measures.size());
    region_.endPosition = INT32_MAX;
  }

  void CancelWhenMeasureIsLoaded(int measure) { cancelAt_ = measure; }

  Outcome Run(int item, bool isSelected = true) {
    const int result = BrevixExtensionInvoke(nullptr, item, isSelected ? &region_ : nullptr, &region_);
    HoldCommandPeriod(false);
    return {std::to_string(result) + ":" + Document() + WhatIsShown(), host_.Calls()};
  }

 private:
  struct LoadedFrame {
    std::vector<unsigned char>* stored;
    std::vector<EXENTRY> entries;
    EXTGF2005a record = {};
  };

  std::uint64_t Load(const HostCall& call) {
    LetTimePass(700);
    if (call.Int(2) == cancelAt_) HoldCommandPeriod(true);
    auto& measures = layers_.at(static_cast<std::size_t>(call.Int(3)));
    LoadedFrame& frame = loaded_.emplace_back();
    frame.stored = &measures.at(static_cast<std::size_t>(call.Int(2) - 1));
    for (const unsigned char flags : *frame.stored) {
      EXENTRY entry = {};
      entry.flags = flags;
      entry.noteCount = 1;
      frame.entries.push_back(entry);
    }
    frame.record.entries = frame.entries.data();
    frame.record.entryCount = static_cast<std::int16_t>(frame.entries.size());
    return reinterpret_cast<std::uint64_t>(&frame.record);
  }

  std::uint64_t Save(const HostCall& call) {
    for (LoadedFrame& frame : loaded_) {
      if (&frame.record != call.Pointer<EXTGF2005a>(0)) continue;
      for (std::size_t i = 0; i < frame.entries.size(); ++i)
        frame.stored->at(i) = static_cast<unsigned char>(frame.entries[i].flags);
    }
    return 1;
  }

  // " hs h" is a document of one layer, in which of three entries the second is shown.
  std::string Document() const {
    std::string text;
    for (const auto& measures : layers_) {
      for (const auto& entries : measures) {
        text += " ";
        for (const unsigned char flags : entries) text += flags == kHidden ? 'h' : flags == 0 ? 's' : '?';
      }
    }
    return text;
  }

  std::string WhatIsShown() const {
    std::string text;
    for (const HostCall& call : host_.Calls()) {
      if (call.name == "BX_StartMassEdit" && call.result != 0) text += ", display";
      if (call.name == "BX_EndMassEdit") text += call.Int(1) == 0 ? " ended" : " cancelled";
      if (call.name == "BX_AlertMessage") text += call.Int(1) == kAlertQuestion ? ", asks" : ", reports no change";
    }
    return text;
  }

  RecordingHost host_;
  EREGION region_ = {};
  std::vector<std::vector<std::vector<unsigned char>>> layers_;
  std::deque<LoadedFrame> loaded_;
  int cancelAt_ = 0;
};

// What a function returns of a handler, and whether the host showed an alert.
Outcome HandlerOutcome(const RecordingHost& host, const std::string& returned) {
  return {returned + (host.Count("BX_AlertMessage") > 0 ? ", alert" : ""), host.Calls()};
}

// A copy of the bundle without its table of texts, bound to the recording host.
class BundleWithoutTexts : public CopiedBundle {
 public:
  BundleWithoutTexts() {
    SetUp();
    RemoveTable();
    BindCopy();
  }
  ~BundleWithoutTexts() override { TearDown(); }
  void TestBody() override {}

  template <class Function>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(LoadCopy(name));
  }
};

}  // namespace

Outcome MakeADialogHandler(FailingCalls failing) {
  RecordingHost host;
  host.Answer("BX_IsMachO", 1);
  host.Answer("BX_AlertMessage", kAlertYes);
  host.Fail(failing);
  return HandlerOutcome(host, NewFF_DialogHandlerProc(&host) == &host ? "unchanged" : "another");
}

Outcome DisposeOfADialogHandler(FailingCalls failing) {
  RecordingHost host;
  host.Answer("BX_IsMachO", 1);
  host.Answer("BX_AlertMessage", kAlertYes);
  host.Fail(failing);
  DisposeFF_DialogHandlerProc(&host);
  return HandlerOutcome(host, "nothing");
}

Outcome ListAnItemWithoutTexts(FailingCalls failing) {
  RecordingHost host;
  host.Answer("BX_AlertMessage", kAlertYes);
  host.Fail(failing);
  const BundleWithoutTexts bundle;
  MenuItemTexts texts;
  std::memset(&texts, 0xAA, sizeof(texts));
  const auto enumerate = bundle.Find<decltype(BrevixExtensionEnumerate_UTF16)>("BrevixExtensionEnumerate_UTF16");
  std::string text = std::to_string(enumerate(nullptr, 0, &texts)) + ":";
  for (const UniChar* units : {texts.text1, texts.text2, texts.text3}) {
    const std::u16string found = TextOf(units);
    text += " " + std::string(found.begin(), found.end());
  }
  return {text + " " + std::to_string(texts.reserved), host.Calls()};
}

Outcome HideTwoMeasures(FailingCalls failing) { return OneStaff({{0, kHidden}, {0, 0}}, failing).Run(kHide); }

Outcome ShowTwoMeasures(FailingCalls failing) {
  return OneStaff({{kHidden, 0}, {kHidden, kHidden}}, failing).Run(kShow);
}

Outcome HideInTwoLayers(FailingCalls failing) { return OneStaff({{0, 0}}, failing, 2).Run(kHide); }

Outcome HideWhereNothingIsSelected(FailingCalls failing) { return OneStaff({{0}}, failing).Run(kHide, false); }

Outcome HideWithTheCancelKeysHeld(FailingCalls failing) {
  HoldCommandPeriod(true);
  return OneStaff({{0}, {0}, {0}}, failing).Run(kHide);
}

Outcome ShowUntilCancelledInTheSecondMeasure(FailingCalls failing) {
  OneStaff staff({{kHidden}, {kHidden}, {kHidden}}, failing);
  staff.CancelWhenMeasureIsLoaded(2);
  return staff.Run(kShow);
}
