#include "host/text/shellword.h"

namespace brvhost {

std::string ShellWord(std::string_view argument) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_./+:,@%^=";
  if (!argument.empty() && argument.find_first_not_of(kPlain) == std::string_view::npos) return std::string(argument);
  std::string word = "'";
  for (const char character : argument) {
    if (character == '\'') {
      word += "'\\''";
    } else {
      word += character;
    }
  }
  return word + "'";
}

}  // namespace brvhost
