#include "host/check/entryfacts.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "BrvEDK/Source/hosttypes.h"
#include "host/bundle/bundlelanguages.h"
#include "host/bundle/entrypoints.h"
#include "host/bundle/extension.h"
#include "host/bundle/loadedbundle.h"
#include "host/bundle/userlanguage.h"
#include "host/check/guarded.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

constexpr std::uint32_t kAnyWord = 0xA5A5A5A5;

// An extension without what the host ensures between the calls.
struct RawExtension {
  explicit RawExtension(const std::string& path) : bundle(path), entryPoints(bundle) {}

  bool Bind() const { return entryPoints.Main(bundle.Path()); }

  const LoadedBundle bundle;
  const EntryPoints entryPoints;
};

std::vector<GuardedTexts> TextsOfAllItems(const std::string& path) {
  const Extension extension(path);
  const RawExtension raw(path);
  std::vector<GuardedTexts> all(extension.Items().size());
  int item = 0;
  for (GuardedTexts& texts : all) raw.entryPoints.Enumerate(item++, texts.Record());
  return all;
}

// What `check` finds wrong with the first item that it finds anything wrong with.
template <class Check>
std::string ForAllTexts(const std::string& path, const Check& check) {
  int item = 0;
  for (const GuardedTexts& texts : TextsOfAllItems(path)) {
    if (std::string wrong = check(texts, item); !wrong.empty()) return wrong;
    ++item;
  }
  return "";
}

// In UTF-8.
std::size_t CharactersIn(const std::string& text) {
  constexpr auto kIsFirst = [](unsigned char byte) { return (byte & 0xC0) != 0x80; };
  return static_cast<std::size_t>(std::ranges::count_if(text, kIsFirst));
}

// The first name of an item, in the menu or in the Undo command, that is too long for it.
std::string LongName(const Extension& extension) {
  constexpr std::size_t kMost = 60;  // a third of the width of a small screen
  int item = 0;
  for (const MenuItem& texts : extension.Items()) {
    for (const std::string& name : {texts.name, texts.undoName}) {
      const std::size_t length = CharactersIn(name);
      if (length > kMost)
        return fmt::format("a name of item {} has {} characters: \"{}\"", item, length, Excerpt(name));
    }
    ++item;
  }
  return "";
}

bool HasEnd(const UniChar* text) {
  return std::find(text, text + MenuItemTexts::kUnits, 0) != text + MenuItemTexts::kUnits;
}

}  // namespace

std::string ExportsEntryPoints(const std::string& path) {
  const RawExtension extension(path);
  const auto& missing = extension.entryPoints.Missing();
  return missing.empty() ? "" : fmt::format("it has no {}", fmt::join(missing, ", "));
}

std::string Binds(const std::string& path) { return RawExtension(path).Bind() ? "" : "main returns 0"; }

std::string HasVersion(const std::string& path) {
  const RawExtension extension(path);
  extension.Bind();
  const std::uint32_t version = extension.entryPoints.Version();
  return version == kBrvVersion ? "" : fmt::format("it is 0x{:08X}, not 0x{:08X}", version, kBrvVersion);
}

std::string Initialises(const std::string& path) {
  const RawExtension extension(path);
  extension.Bind();
  std::uint32_t word = kAnyWord;
  if (extension.entryPoints.Init(word) == 0) return "BrevixExtensionInit returns 0";
  return word == 0 ? "" : "BrevixExtensionInit leaves its word as it was, and it has to be 0";
}

std::string EndsItsList(const std::string& path) { return Extension(path).Items().empty() ? "it offers no item" : ""; }

std::string TerminatesTexts(const std::string& path) {
  return ForAllTexts(path, [](const GuardedTexts& texts, int item) -> std::string {
    int number = 0;
    for (const UniChar* const text : {texts->text1, texts->text2, texts->text3}) {
      ++number;
      if (HasEnd(text)) continue;
      return fmt::format("text {} of item {} has no end within {} units", number, item, int{MenuItemTexts::kUnits});
    }
    return "";
  });
}

std::string ClearsLastWord(const std::string& path) {
  return ForAllTexts(path, [](const GuardedTexts& texts, int item) -> std::string {
    if (texts->reserved == 0) return "";
    return fmt::format("that of item {} is 0x{:08X}, not 0", item, texts->reserved);
  });
}

std::string StaysWithinTexts(const std::string& path) {
  return ForAllTexts(path, [](const GuardedTexts& texts, int item) -> std::string {
    return texts.IsFenceWhole() ? "" : fmt::format("item {} writes beyond the record", item);
  });
}

std::string LeavesRefusedTexts(const std::string& path) {
  const Extension extension(path);
  GuardedTexts texts;
  RawExtension(path).entryPoints.Enumerate(static_cast<int>(extension.Items().size()), texts.Record());
  return texts.IsUntouched() ? "" : "it writes to the texts of an item that it does not have";
}

std::string HasShortNames(const std::string& path) {
  const Extension extension(path);
  std::string wrong = LongName(extension);
  for (const std::string& language : LanguagesOf(path)) {
    if (!wrong.empty()) break;
    const UserLanguage other(language);
    wrong = LongName(extension);
    if (!wrong.empty()) wrong = fmt::format("in {}, {}", language, wrong);
  }
  return wrong;
}

std::string HasMenuStatus(const std::string& path) {
  const int status = Extension(path).MenuStatus();
  return status == 0 || status == 1 ? "" : fmt::format("it is {}, neither 0 nor 1", status);
}

}  // namespace brvhost
