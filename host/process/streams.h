// Text for people, on the standard streams.
#pragma once

#include <fmt/format.h>

#include <cstdio>
#include <string>
#include <utility>

namespace brvhost {

// A stream that takes no more does not stop the work on the scores; its error indicator shows that something was lost.
template <class... Arguments>
void Print(std::FILE* stream, fmt::format_string<Arguments...> format, Arguments&&... arguments) {
  const std::string text = fmt::format(format, std::forward<Arguments>(arguments)...);
  std::fwrite(text.data(), 1, text.size(), stream);
}

}  // namespace brvhost
