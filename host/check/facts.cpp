#include "host/check/facts.h"

#include <fmt/format.h>

#include <algorithm>

#include "BrvEDK/Source/hostbundle.h"
#include "host/batch/cancelkeys.h"
#include "host/check/emptyhost.h"
#include "host/check/guarded.h"
#include "host/check/trial.h"

namespace brvhost {
namespace {

constexpr const char* kExports[] = {"main",
                                    "BrevixExtensionVersion",
                                    "BrevixExtensionInit",
                                    "BrevixExtensionEnumerate_UTF16",
                                    "BrevixExtensionInvoke",
                                    "BrevixExtensionTerminate",
                                    "BrevixExtensionGetMenuStatus"};
constexpr std::uint32_t kAnyWord = 0xA5A5A5A5;

// The entry points of a bundle, called one by one, without what the host makes sure of between the calls.
class RawExtension {
 public:
  explicit RawExtension(const std::string& path) : bundle_(path) {}

  void* Find(const char* name) const { return bundle_.Find(name); }
  int Main() const {
    const char* arguments[] = {bundle_.Path().c_str(), nullptr};
    return Function<decltype(BrevixExtensionMain)>("main")(1, static_cast<void*>(arguments));
  }
  std::uint32_t Version() const { return Function<decltype(BrevixExtensionVersion)>("BrevixExtensionVersion")(); }
  int Init(std::uint32_t& word) const {
    return Short(Function<decltype(BrevixExtensionInit)>("BrevixExtensionInit")(nullptr, &word));
  }
  int Enumerate(int index, MenuItemTexts* texts) const {
    return Short(
        Function<decltype(BrevixExtensionEnumerate_UTF16)>("BrevixExtensionEnumerate_UTF16")(nullptr, index, texts));
  }

 private:
  static int Short(int result) { return static_cast<std::int16_t>(result); }
  template <class Signature>
  Signature* Function(const char* name) const {
    return reinterpret_cast<Signature*>(bundle_.Find(name));
  }

  LoadedBundle bundle_;
};

std::string Exports(const std::string& path) {
  const RawExtension extension(path);
  std::string missing;
  for (const char* const name : kExports) {
    if (extension.Find(name) == nullptr) missing += missing.empty() ? name : fmt::format(", {}", name);
  }
  return missing.empty() ? "" : "it has no " + missing;
}

std::string Binds(const std::string& path) { return RawExtension(path).Main() != 0 ? "" : "main answers 0"; }

std::string HasVersion(const std::string& path) {
  const RawExtension extension(path);
  extension.Main();
  const std::uint32_t version = extension.Version();
  return version == kBrvVersion ? "" : fmt::format("it is 0x{:08X}, not 0x{:08X}", version, kBrvVersion);
}

std::string Initialises(const std::string& path) {
  const RawExtension extension(path);
  extension.Main();
  std::uint32_t word = kAnyWord;
  if (extension.Init(word) == 0) return "BrevixExtensionInit answers 0";
  return word == 0 ? "" : "BrevixExtensionInit leaves its word as it was, and it has to be 0";
}

std::string EndsItsList(const std::string& path) { return Extension(path).Items().empty() ? "it offers no item" : ""; }

std::vector<GuardedTexts> TextsOfAllItems(const std::string& path) {
  const Extension extension(path);
  const auto count = static_cast<int>(extension.Items().size());
  const RawExtension raw(path);
  std::vector<GuardedTexts> all(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) raw.Enumerate(i, all[static_cast<std::size_t>(i)].Record());
  return all;
}

std::string TerminatesTexts(const std::string& path) {
  int item = 0;
  for (const GuardedTexts& texts : TextsOfAllItems(path)) {
    int number = 0;
    for (const UniChar* const text : {texts->text1, texts->text2, texts->text3}) {
      ++number;
      if (std::find(text, text + MenuItemTexts::kUnits, 0) != text + MenuItemTexts::kUnits) continue;
      return fmt::format("text {} of item {} has no end within {} units", number, item, int{MenuItemTexts::kUnits});
    }
    ++item;
  }
  return "";
}

std::string ClearsLastWord(const std::string& path) {
  int item = 0;
  for (const GuardedTexts& texts : TextsOfAllItems(path)) {
    if (texts->reserved != 0) return fmt::format("that of item {} is 0x{:08X}, not 0", item, texts->reserved);
    ++item;
  }
  return "";
}

std::string StaysWithinTexts(const std::string& path) {
  int item = 0;
  for (const GuardedTexts& texts : TextsOfAllItems(path)) {
    if (!texts.IsFenceWhole()) return fmt::format("item {} writes beyond the record", item);
    ++item;
  }
  return "";
}

std::string LeavesRefusedTexts(const std::string& path) {
  const Extension extension(path);
  GuardedTexts texts;
  RawExtension(path).Enumerate(static_cast<int>(extension.Items().size()), texts.Record());
  return texts.IsUntouched() ? "" : "it writes to the texts of an item that it does not have";
}

std::string HasMenuStatus(const std::string& path) {
  const int status = Extension(path).MenuStatus();
  return status == 0 || status == 1 ? "" : fmt::format("it is {}, neither 0 nor 1", status);
}

std::string Unbalanced(const Trial& trial, int item) {
  const OpenDocument& document = trial.document;
  if (document.StrayFrames() > 0) {
    return fmt::format("item {} saves or frees frames that are not loaded: {} in all", item, document.StrayFrames());
  }
  if (document.LoadedFrames() > 0)
    return fmt::format("item {} leaves frames loaded: {} in all", item, document.LoadedFrames());
  return "";
}

// What `check` finds wrong with the first item that it finds anything wrong with, each tried on a fresh score.
std::string ForEachItem(const std::string& path, const std::function<std::string(Trial&, int)>& check) {
  const auto count = static_cast<int>(Extension(path).Items().size());
  for (int item = 0; item < count; ++item) {
    Trial trial(path);
    if (std::string wrong = check(trial, item); !wrong.empty()) return wrong;
  }
  return "";
}

std::string RefusesWrongIndex(const std::string& path) {
  const auto count = static_cast<int>(Extension(path).Items().size());
  for (const int index : {count, 0xFFFF}) {
    Trial trial(path);
    const std::vector<bool> before = trial.Hidden();
    const int answer = trial.Invoke(index);
    if (answer != 0) return fmt::format("item {}, which there is not, answers {}", index, answer);
    if (trial.Hidden() != before) return fmt::format("item {}, which there is not, changes the score", index);
    if (trial.user.told + trial.user.asked > 0)
      return fmt::format("item {}, which there is not, shows an alert", index);
  }
  return "";
}

std::string RespectsDecline(const std::string& path) {
  const auto count = static_cast<int>(Extension(path).Items().size());
  for (int item = 0; item < count; ++item) {
    Trial trial(path, false);
    const std::vector<bool> before = trial.Hidden();
    const InaccessiblePage fallback;
    const int answer = trial.extension.Invoke(item, nullptr, static_cast<EREGION*>(fallback.Address()));
    if (answer != 0) return fmt::format("item {} answers {} all the same", item, answer);
    if (trial.Hidden() != before) return fmt::format("item {} changes the score all the same", item);
  }
  return "";
}

std::string WorksInEmptyHost(const std::string& path, const EmptyHost& host) {
  host.Open();
  const Extension extension(path);
  const auto count = static_cast<int>(extension.Items().size());
  EREGION region = WholeScore(TrialScore());
  for (int item = 0; item < count; ++item) extension.Invoke(item, &region, &region);
  extension.Terminate();
  return "";
}

std::string BalancesFrames(const std::string& path) {
  return ForEachItem(path, [](Trial& trial, int item) {
    trial.Invoke(item);
    return Unbalanced(trial, item);
  });
}

std::string BalancesEdits(const std::string& path) {
  return ForEachItem(path, [](Trial& trial, int item) -> std::string {
    trial.Invoke(item);
    if (trial.session.ShowsProgress()) return fmt::format("item {} leaves the progress display open", item);
    return trial.document.EditDepth() == 0 ? "" : fmt::format("item {} leaves an edit open", item);
  });
}

std::string EndsWhenCancelled(const std::string& path) {
  HoldCancelKeys();
  return BalancesFrames(path);
}

std::string ChangesNothingTwice(const std::string& path) {
  return ForEachItem(path, [](Trial& trial, int item) -> std::string {
    trial.Invoke(item);
    const std::vector<bool> once = trial.Hidden();
    const std::uint64_t saved = trial.document.SavedFrames();
    trial.Invoke(item);
    if (trial.Hidden() != once) return fmt::format("item {} changes the score again", item);
    const std::uint64_t again = trial.document.SavedFrames() - saved;
    return again == 0 ? "" : fmt::format("item {} saves frames without a change: {} in all", item, again);
  });
}

std::string Terminates(const std::string& path) {
  const Trial trial(path);
  trial.extension.Terminate();
  return "";
}

}  // namespace

std::vector<Fact> FactsAbout(const std::string& path) {
  const auto fact = [&path](const char* name, std::function<std::string(const std::string&)> check,
                            bool othersNeedIt = false) {
    const auto explain = [path, check = std::move(check)]() -> std::string {
      try {
        return check(path);
      } catch (const BundleError& error) {
        const std::string message = error.what();
        return message.starts_with(path + ": ") ? message.substr(path.size() + 2) : message;
      }
    };
    return Fact{name, explain, othersNeedIt};
  };
  const auto host = std::make_shared<EmptyHost>();
  const auto worksInEmptyHost = [host](const std::string& bundle) { return WorksInEmptyHost(bundle, *host); };
  return {
      fact("loads, and exports the entry points", Exports, true),
      fact("binds to its host", Binds, true),
      fact("is for this version of the host", HasVersion, true),
      fact("initialises, and clears the word", Initialises, true),
      fact("offers items, and ends their list", EndsItsList, true),
      fact("ends each text of an item", TerminatesTexts),
      fact("clears the last word of each item's texts", ClearsLastWord),
      fact("writes to the texts' record alone", StaysWithinTexts),
      fact("leaves the texts alone of an item that it does not have", LeavesRefusedTexts),
      fact("has a menu status", HasMenuStatus),
      fact("refuses an item that it does not have", RefusesWrongIndex),
      fact("does nothing when the user declines", RespectsDecline),
      fact("works in a host without functions", worksInEmptyHost),
      fact("frees each frame that it loads, once", BalancesFrames),
      fact("ends the edits and progress that it starts", BalancesEdits),
      fact("ends in order when the user cancels", EndsWhenCancelled),
      fact("changes nothing the second time", ChangesNothingTwice),
      fact("terminates", Terminates),
  };
}

}  // namespace brvhost
