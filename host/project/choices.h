// What the author of a new extension chooses, and what of it cannot be.
#pragma once

#include <string>
#include <vector>

namespace brvhost {

struct ProjectChoices {
  std::string name;                    // of the folder, the bundle and its executable
  std::string identifier;              // of the bundle
  std::vector<std::string> languages;  // as the folders of localizations are named; the first is English
};

// Each returns what is wrong, as a clause for people; empty for nothing.
std::string WrongName(const std::string& name);
std::string WrongIdentifier(const std::string& identifier);
std::string WrongLanguage(const std::string& language);

// The identifier of an extension whose author has no domain.
std::string DefaultIdentifier(const std::string& name);

// The languages of a list with commas, each once, after English, in which texts are developed.
std::vector<std::string> LanguagesIn(const std::string& list);

}  // namespace brvhost
