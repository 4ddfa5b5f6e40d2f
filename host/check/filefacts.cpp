#include "host/check/filefacts.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "host/bundle/bundlelanguages.h"
#include "host/bundle/infotext.h"
#include "host/bundle/textfaults.h"
#include "host/bundle/textsfile.h"
#include "host/files/foldernames.h"
#include "host/text/placeholders.h"
#include "host/text/shortlist.h"

namespace brvhost {
namespace {

// A file of texts, by the name that it has in each language.
struct TextsFile {
  std::string language;
  std::string name;
  std::string path;
  std::string shown;  // for messages: de.lproj/Localizable.strings
  std::optional<std::map<std::string, std::string>> texts;
};

std::vector<TextsFile> TextsFilesOf(const std::string& path) {
  std::vector<TextsFile> files;
  for (const std::string& language : LanguagesOf(path)) {
    const std::string folder = language + ".lproj/";
    const std::string place = fmt::format("{}/Contents/Resources/{}", path, folder);
    for (const std::string& name : NamesIn(place).value_or(std::vector<std::string>())) {
      if (!name.ends_with(".strings")) continue;
      const std::string file = place + name;
      files.push_back({language, name, file, folder + name, TextsIn(file)});
    }
  }
  return files;
}

// What `check` finds wrong with the first file in comparison with the fullest of its name.
template <class Check>
std::string ForEachTranslation(const std::string& path, const Check& check) {
  const std::vector<TextsFile> files = TextsFilesOf(path);
  std::map<std::string, const TextsFile*> fullest;
  for (const TextsFile& file : files) {
    const TextsFile*& most = fullest[file.name];
    if (file.texts && (most == nullptr || file.texts->size() > most->texts->size())) most = &file;
  }
  for (const auto& [name, full] : fullest) {
    if (full == nullptr) continue;
    for (const std::string& language : LanguagesOf(path)) {
      const auto own = std::ranges::find_if(files, [&, &wanted = name](const TextsFile& file) {
        return file.language == language && file.name == wanted;
      });
      if (own != files.end() && !own->texts) continue;
      const TextsFile none{language, name, "", fmt::format("{}.lproj/{}", language, name),
                           std::map<std::string, std::string>()};
      if (std::string wrong = check(own == files.end() ? none : *own, *full); !wrong.empty()) return wrong;
    }
  }
  return "";
}

}  // namespace

std::string HasInfoKeys(const std::string& path) {
  std::vector<std::string> missing;
  for (const char* const key :
       {"CFBundleDevelopmentRegion", "CFBundleExecutable", "CFBundleIdentifier", "CFBundleInfoDictionaryVersion",
        "CFBundleName", "CFBundlePackageType", "CFBundleShortVersionString", "CFBundleVersion"}) {
    if (InfoText(path, key).empty()) missing.emplace_back(key);
  }
  return missing.empty() ? "" : fmt::format("it lacks {}", fmt::join(missing, ", "));
}

std::string HasDevelopmentRegion(const std::string& path) {
  const std::string region = InfoText(path, "CFBundleDevelopmentRegion");
  const std::vector<std::string> languages = LanguagesOf(path);
  if (region.empty() || languages.empty() || std::ranges::find(languages, region) != languages.end()) return "";
  return fmt::format("CFBundleDevelopmentRegion is {}, and there is no {}.lproj", region, region);
}

std::string HasReadableTexts(const std::string& path) {
  for (const TextsFile& file : TextsFilesOf(path)) {
    if (file.texts) continue;
    const auto fault = FirstFaultOf(file.path);
    return fault ? fmt::format("{}:{}: {}", file.shown, fault->line, fault->what)
                 : fmt::format("{} is no list of texts", file.shown);
  }
  return "";
}

std::string HasAllTranslations(const std::string& path) {
  return ForEachTranslation(path, [](const TextsFile& file, const TextsFile& full) -> std::string {
    std::vector<std::string> missing;
    for (const auto& [key, text] : *full.texts) {
      if (!file.texts->contains(key)) missing.push_back('"' + key + '"');
    }
    if (missing.empty()) return "";
    return fmt::format("{} lacks {}, which {} has", file.shown, ShortList(missing), full.shown);
  });
}

std::string KeepsPlaceholders(const std::string& path) {
  return ForEachTranslation(path, [](const TextsFile& file, const TextsFile& full) -> std::string {
    for (const auto& [key, text] : *full.texts) {
      const auto own = file.texts->find(key);
      if (own == file.texts->end() || PlaceholdersIn(own->second) == PlaceholdersIn(text)) continue;
      return fmt::format("\"{}\" has other placeholders in {} than in {}", key, file.shown, full.shown);
    }
    return "";
  });
}

}  // namespace brvhost
