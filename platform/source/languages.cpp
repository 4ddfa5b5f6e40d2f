#include "languages.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace brvplatform {
namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 13> kOtherNames = {{
    {"english", "en"},
    {"german", "de"},
    {"french", "fr"},
    {"italian", "it"},
    {"spanish", "es"},
    {"japanese", "ja"},
    {"dutch", "nl"},
    {"zh-tw", "zh-hant-tw"},
    {"zh-hk", "zh-hant-hk"},
    {"zh-mo", "zh-hant-mo"},
    {"zh-cn", "zh-hans-cn"},
    {"zh-sg", "zh-hans-sg"},
    {"zh", "zh-hans"},
}};

// One spelling for each name of a language: lower case, with hyphens.
std::string Canonical(std::string_view language) {
  std::string name(language.substr(0, language.find_first_of(".@")));
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return c == '_' ? '-' : static_cast<char>(std::tolower(c)); });
  const auto* other =
      std::find_if(kOtherNames.begin(), kOtherNames.end(), [&](const auto& n) { return n.first == name; });
  return other == kOtherNames.end() ? name : std::string(other->second);
}

// "de" for "de-AT", "" for "de".
std::string ParentOf(const std::string& language) {
  const std::size_t end = language.rfind('-');
  return end == std::string::npos ? std::string() : language.substr(0, end);
}

bool IsRelative(const std::string& localization, const std::string& ancestor) {
  return localization == ancestor || localization.starts_with(ancestor + "-");
}

template <class Matches>
std::optional<std::string> FirstThat(const std::vector<std::string>& localizations, Matches matches) {
  const auto found = std::find_if(localizations.begin(), localizations.end(), matches);
  return found == localizations.end() ? std::nullopt : std::optional(*found);
}

std::optional<std::string> LocalizationFor(const std::vector<std::string>& localizations, const std::string& language) {
  if (auto same = FirstThat(localizations, [&](const std::string& l) { return l == language; })) return same;
  for (std::string name = Canonical(language); !name.empty(); name = ParentOf(name)) {
    if (auto same = FirstThat(localizations, [&](const std::string& l) { return Canonical(l) == name; })) return same;
    if (auto kin = FirstThat(localizations, [&](const std::string& l) { return IsRelative(Canonical(l), name); })) {
      return kin;
    }
  }
  return std::nullopt;
}

const char* FirstSet(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return "";
}

}  // namespace

std::vector<std::string> UserLanguages() {
  const std::string_view locale = FirstSet({"LC_ALL", "LC_MESSAGES", "LANG"});
  if (locale == "C" || locale == "POSIX") return {};
  std::string_view list = FirstSet({"LANGUAGE"});
  if (list.empty()) list = locale;
  std::vector<std::string> languages;
  while (!list.empty()) {
    const std::string_view entry = list.substr(0, list.find(':'));
    const std::string_view language = entry.substr(0, entry.find_first_of(".@"));
    if (!language.empty()) languages.emplace_back(language);
    list.remove_prefix(std::min(entry.size() + 1, list.size()));
  }
  return languages;
}

std::optional<std::string> BestLocalization(const std::vector<std::string>& localizations,
                                            const std::vector<std::string>& languages) {
  for (const std::string& language : languages) {
    if (auto localization = LocalizationFor(localizations, language)) return localization;
  }
  return std::nullopt;
}

}  // namespace brvplatform
