// The user's languages, and the localization of a bundle that fits them.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brvplatform {

// The user's languages, first choice first: LANGUAGE as a list, else LC_ALL, LC_MESSAGES or LANG, whichever is set
// first. None where that is "C" or "POSIX", whatever LANGUAGE is: programs then speak as they were written.
std::vector<std::string> UserLanguages();

// The localization that fits one of the languages best: the language itself, else its parent ("de" for "de-AT"), else
// a relative ("de-CH"). Old names ("German") and separators ("de_CH") count as the new ones.
std::optional<std::string> BestLocalization(const std::vector<std::string>& localizations,
                                            const std::vector<std::string>& languages);

}  // namespace brvplatform
