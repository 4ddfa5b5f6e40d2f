#include "host/project/choices.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "host/text/blanks.h"
#include "hosttypes.h"

namespace brvhost {
namespace {

constexpr std::string_view kDevelopmentLanguage = "en";
constexpr std::size_t kLongestName = 64;
constexpr std::size_t kLongestIdentifier = 155;

// Targets that the generators of CMake make themselves.
constexpr std::array kReserved = {"all",          "clean",      "default_target", "depend",     "edit_cache",
                                  "experimental", "continuous", "help",           "install",    "makefile",
                                  "nightly",      "package",    "package_source", "preinstall", "rebuild_cache",
                                  "run_tests",    "test",       "chords_test",    "zero_check", "all_build"};

bool IsLetter(char character) { return (character | 0x20) >= 'a' && (character | 0x20) <= 'z'; }
bool IsSmallLetter(char character) { return character >= 'a' && character <= 'z'; }
bool IsDigit(char character) { return character >= '0' && character <= '9'; }
bool IsLetterOrDigit(char character) { return IsLetter(character) || IsDigit(character); }

bool IsReserved(const std::string& name) {
  return std::ranges::any_of(kReserved,
                             [&name](const char* reserved) { return strcasecmp(reserved, name.c_str()) == 0; });
}

// The texts between the separators.
std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    parts.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

bool IsWord(std::string_view text, bool (*isPart)(char), std::size_t shortest, std::size_t longest) {
  return text.size() >= shortest && text.size() <= longest && std::ranges::all_of(text, isPart);
}

}  // namespace

std::string WrongName(const std::string& name) {
  const auto isPart = [](char character) { return IsLetterOrDigit(character) || character == '-' || character == '_'; };
  if (name.empty()) return "is empty";
  if (!IsLetterOrDigit(name[0]) || !std::ranges::all_of(name, isPart)) {
    return "is no name of an extension: these have letters from A to Z, digits, - and _, and begin with a letter or a "
           "digit";
  }
  if (name.size() > kLongestName) return "is longer than " + std::to_string(kLongestName) + " characters";
  if (IsReserved(name)) return "is a name that CMake needs itself";
  return "";
}

std::string WrongIdentifier(const std::string& identifier) {
  const auto isPart = [](char character) { return IsLetterOrDigit(character) || character == '-'; };
  const std::vector<std::string> words = Split(identifier, '.');
  const bool areWords =
      std::ranges::all_of(words, [&](const std::string& word) { return IsWord(word, isPart, 1, kLongestIdentifier); });
  if (!areWords || words.size() < 2 || identifier.size() > kLongestIdentifier) {
    return "is no identifier of a bundle: these are words of letters from A to Z, digits and -, with dots between "
           "them, such as org.example.Mine";
  }
  if (identifier == BREVIX_HOST_IDENTIFIER) return "is the identifier of the application";
  return "";
}

std::string WrongLanguage(const std::string& language) {
  if (language.empty()) return "is empty between commas";
  const std::vector<std::string> words = Split(language, '-');
  const bool isRest = std::all_of(words.begin() + 1, words.end(),
                                  [](const std::string& word) { return IsWord(word, IsLetterOrDigit, 2, 8); });
  if (isRest && IsWord(words[0], IsSmallLetter, 2, 3)) return "";
  return "is no code of a language, such as de, pt-BR or zh-Hans";
}

std::string DefaultIdentifier(const std::string& name) {
  std::string word = name;
  std::ranges::replace(word, '_', '-');
  return "org.example." + word;
}

std::vector<std::string> LanguagesIn(const std::string& list) {
  std::vector<std::string> languages = {std::string(kDevelopmentLanguage)};
  for (const std::string& part : Split(list, ',')) {
    std::string language(WithoutBlanks(part));
    if (std::ranges::find(languages, language) == languages.end()) languages.push_back(std::move(language));
  }
  return languages;
}

}  // namespace brvhost
