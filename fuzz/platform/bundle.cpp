// Folders of bundles with any localizations and files, and users of any languages: which file is found.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "platform/source/bundlefolder.h"
#include "platform/source/languages.h"

namespace {

using namespace brvplatform;
namespace fs = std::filesystem;

// One folder for the life of the process, emptied for each input.
class Folder {
 public:
  Folder() {
    std::string name = fs::temp_directory_path() / "fuzz-bundle-XXXXXX";
    Require(mkdtemp(name.data()) != nullptr, "there is a folder for the bundle");
    top_ = fs::canonical(name);
  }
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(top_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const fs::path& Path() const { return top_; }
  void Empty() const {
    for (const auto& entry : fs::directory_iterator(top_)) fs::remove_all(entry);
  }

 private:
  fs::path top_;
};

std::string AnyLanguage(Input& input) {
  constexpr const char* kLanguages[] = {"en",    "de",      "de-AT", "de_CH",   "German", "English", "fr",    "fr_CA",
                                        "zh-TW", "zh-Hans", "zh",    "zh_Hant", "ja",     "Base",    "EN-gb", "pt-BR"};
  const auto number = static_cast<std::size_t>(input.Byte());
  if (number < 240) return kLanguages[number % std::size(kLanguages)];
  std::string name(input.Text(static_cast<std::size_t>(input.Below(6))));
  std::erase_if(name, [](char c) { return c == '/' || c == '\0' || c == '.'; });
  return name;
}

std::vector<std::string> AnyLanguages(Input& input, int most) {
  std::vector<std::string> languages(static_cast<std::size_t>(input.Below(most)));
  for (std::string& language : languages) language = AnyLanguage(input);
  return languages;
}

void CheckBest(const std::vector<std::string>& localizations, const std::vector<std::string>& languages) {
  const auto best = BestLocalization(localizations, languages);
  if (best) Require(std::ranges::count(localizations, *best) > 0, "the best localization is one of them");
  for (const std::string& language : languages) {
    if (std::ranges::count(localizations, language) == 0) continue;
    Require(best.has_value(), "where a localization is a language, one is best");
    if (language == languages.front()) Require(best == language, "the first language itself is best");
  }
  std::vector<std::string> more = languages;
  more.emplace_back("x-none");
  if (best) Require(BestLocalization(localizations, more) == best, "a later language changes nothing");
}

void CheckFolder(Input& input, const fs::path& top) {
  const fs::path resources = input.Flag() ? top / "Contents" / "Resources" : top / "Resources";
  fs::create_directories(resources);
  std::vector<std::string> withFile;
  std::vector<std::string> expected;
  for (const std::string& localization : AnyLanguages(input, 6)) {
    if (localization.empty()) continue;
    fs::create_directories(resources / (localization + ".lproj"));
    if (localization != "Base") expected.push_back(localization);
    if (!input.Flag()) continue;
    withFile.push_back(localization);
    std::ofstream(resources / (localization + ".lproj") / "a.strings") << "k = v;";
  }
  const bool isPlain = input.Below(8) == 0;
  if (isPlain) std::ofstream(resources / "a.strings") << "k = v;";
  std::string languages;
  for (const std::string& language : AnyLanguages(input, 4)) languages += language + ":";
  setenv("LANGUAGE", languages.c_str(), 1);
  const std::string region = input.Flag() ? AnyLanguage(input) : "";

  const BundleFolder folder = BundleFolder::At(top);
  std::ranges::sort(expected);
  expected.erase(std::unique(expected.begin(), expected.end()), expected.end());
  Require(folder.Localizations() == expected, "the localizations are the folders of that name, in order");
  const auto found = folder.FindResource("a.strings", "", region);
  Require(found.has_value() == (isPlain || !withFile.empty()), "a file is found wherever it is");
  if (!found) return;
  Require(fs::exists(*found), "what is found is there");
  Require(!isPlain || fs::path(*found).parent_path() == folder.resources, "a file outside of them comes first");
  Require(!folder.FindResource("b.strings", "", region).has_value(), "a file that is not there is not found");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const Folder folder;
  Input input(bytes, size);
  const auto localizations = AnyLanguages(input, 8);
  CheckBest(localizations, AnyLanguages(input, 5));
  folder.Empty();
  CheckFolder(input, folder.Path());
  return 0;
}
