#include "host/project/newproject.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "host/project/newfolder.h"
#include "host/project/templatefiles.h"

namespace brvhost {
namespace {

constexpr std::string_view kTexts = "texts/";
constexpr std::string_view kEnglishTexts = "texts/en.strings";
constexpr std::string_view kToBeTranslated = "/* To be translated: these are the texts in English. */\n\n";

std::string FolderOf(const std::string& language) { return language + ".lproj"; }

// Null where there is none.
const TemplateFile* FindFile(std::string_view path) {
  const auto files = TemplateFiles();
  const auto found = std::ranges::find(files, path, &TemplateFile::path);
  return found == files.end() ? nullptr : &*found;
}

void Replace(std::string& text, std::string_view mark, std::string_view by) {
  for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + by.size())) {
    text.replace(at, mark.size(), by);
  }
}

std::string Filled(std::string_view content, const ProjectChoices& choices) {
  std::string localizations;
  for (const std::string& language : choices.languages) {
    localizations += (localizations.empty() ? "" : " ") + FolderOf(language);
  }
  std::string text(content);
  Replace(text, "@NAME@", choices.name);
  Replace(text, "@IDENTIFIER@", choices.identifier);
  Replace(text, "@LOCALIZATIONS@", localizations);
  return text;
}

std::string TextsIn(const std::string& language) {
  const TemplateFile* const texts = FindFile(std::string(kTexts) + language + ".strings");
  if (texts != nullptr) return std::string(texts->content);
  return std::string(kToBeTranslated) + std::string(FindFile(kEnglishTexts)->content);
}

}  // namespace

void MakeProject(const ProjectChoices& choices) {
  NewFolder folder(choices.name);
  for (const TemplateFile& file : TemplateFiles()) {
    if (!file.path.starts_with(kTexts)) folder.Add(file.path, Filled(file.content, choices));
  }
  for (const std::string& language : choices.languages) {
    folder.Add(FolderOf(language) + "/Localizable.strings", TextsIn(language));
  }
  folder.Keep();
}

}  // namespace brvhost
