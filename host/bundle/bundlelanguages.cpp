#include "host/bundle/bundlelanguages.h"

#include <string_view>

#include "host/files/foldernames.h"

namespace brvhost {

std::vector<std::string> LanguagesOf(const std::string& bundle) {
  constexpr std::string_view kEnding = ".lproj";
  std::vector<std::string> languages;
  for (const std::string& name : NamesIn(bundle + "/Contents/Resources").value_or(std::vector<std::string>())) {
    if (!name.ends_with(kEnding)) continue;
    const std::string language = name.substr(0, name.size() - kEnding.size());
    if (!language.empty() && language != "Base") languages.push_back(language);
  }
  return languages;
}

}  // namespace brvhost
