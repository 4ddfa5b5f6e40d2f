#include "host/bundle/extension.h"

#include <CoreFoundation/CoreFoundation.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <new>

#include "BrvEDK/Source/stringids.h"
#include "host/bundle/bundlelanguages.h"
#include "host/bundle/userlanguage.h"
#include "host/text/cfowner.h"
#include "host/text/utf8.h"

namespace brvhost {
namespace {

constexpr int kMaxItems = 1000;

// An extension that writes a little too far spoils nothing of the host's.
struct TextsWithMargin {
  MenuItemTexts texts;
  std::uint8_t margin[256];
};

}  // namespace

Extension::Extension(const std::string& path) : bundle_(path), entryPoints_(bundle_) {
  const auto& missing = entryPoints_.Missing();
  if (!missing.empty()) throw BundleError(fmt::format("{}: has no {}", path, missing.front()));
  if (!entryPoints_.Main(path)) throw BundleError(path + ": does not bind to this host");
  const std::uint32_t version = entryPoints_.Version();
  if (version != kBrvVersion) {
    throw BundleError(fmt::format("{}: is for version 0x{:08X} of the host, not 0x{:08X}", path, version, kBrvVersion));
  }
  std::uint32_t word = 0;
  if (entryPoints_.Init(word) == 0) throw BundleError(path + ": does not initialise");
}

std::vector<MenuItem> Extension::Items() const {
  std::vector<MenuItem> items;
  for (int index = 0; index < kMaxItems; ++index) {
    TextsWithMargin record{};
    MenuItemTexts& texts = record.texts;
    if (entryPoints_.Enumerate(index, texts) == 0) return items;
    constexpr std::size_t kUnits = MenuItemTexts::kUnits;
    items.push_back(
        {Utf8FromUnits(texts.text1, kUnits), Utf8FromUnits(texts.text2, kUnits), Utf8FromUnits(texts.text3, kUnits)});
  }
  throw BundleError(fmt::format("{}: offers more than {} menu items", bundle_.Path(), kMaxItems));
}

std::vector<NameMatch> Extension::MatchesOf(const std::string& name, std::size_t count) const {
  std::vector<NameMatch> matches(count, NameMatch::kNone);
  const auto match = [&] {
    const std::vector<MenuItem> items = Items();
    for (std::size_t i = 0; i < std::min(items.size(), count); ++i) {
      matches[i] = std::max(matches[i], MatchOf(name, items[i].name));
    }
  };
  match();
  for (const std::string& language : LanguagesOf(bundle_.Path())) {
    const UserLanguage other(language);
    match();
  }
  return matches;
}

std::string Extension::LocalizedText(std::int32_t stringID) const {
  const Owned<CFStringRef> key(CFStringCreateWithCString(nullptr, StringKey(stringID).text, kCFStringEncodingUTF8));
  if (!key) throw std::bad_alloc();
  const Owned<CFStringRef> text(CFBundleCopyLocalizedString(bundle_.Reference(), key.Get(), key.Get(), nullptr));
  if (!text) throw std::bad_alloc();
  return Utf8FromString(text.Get());
}

}  // namespace brvhost
