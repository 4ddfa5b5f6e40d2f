#include "fuzz/host/declaration.h"

#include <strings.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace brvhost {

bool DeclaresSlowEncoding(std::string_view document) {
  constexpr std::string_view kQuick[] = {"UTF-8",     "UTF-16",       "UTF-16LE",     "UTF-16BE",
                                         "US-ASCII",  "ISO-8859-1",   "ISO-8859-15",  "KOI8-R",
                                         "macintosh", "windows-1252", "windows-1251", "no-such-name"};
  std::string start(document.substr(0, 500));
  std::erase(start, '\0');  // as in UTF-16
  const std::size_t found = start.find("encoding");
  if (found == std::string::npos) return false;
  const std::size_t open = start.find_first_of("\"'", found);
  if (open == std::string::npos) return false;
  const std::string name = start.substr(open + 1, start.find(start[open], open + 1) - open - 1);
  return std::ranges::none_of(kQuick, [&name](std::string_view quick) {
    return name.size() == quick.size() && strncasecmp(name.data(), quick.data(), quick.size()) == 0;
  });
}

}  // namespace brvhost
