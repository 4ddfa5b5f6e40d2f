#include "host/xml/unreadencoding.h"

namespace brvhost {

const char* UnreadEncodingOf(std::string_view document) {
  using namespace std::string_view_literals;
  struct Start {
    std::string_view bytes;
    const char* encoding;
  };
  // A byte-order mark, a "<", or the "<?xm" of a declaration.
  constexpr Start kStarts[] = {
      {"\xFF\xFE\0\0"sv, "UTF-32"},     {"\0\0\xFE\xFF"sv, "UTF-32"}, {"<\0\0\0"sv, "UTF-32"}, {"\0\0\0<"sv, "UTF-32"},
      {"\x4C\x6F\xA7\x94"sv, "EBCDIC"}, {"+ADw-"sv, "UTF-7"},         {"+/v"sv, "UTF-7"},
  };
  for (const Start& start : kStarts) {
    if (document.starts_with(start.bytes)) return start.encoding;
  }
  return nullptr;
}

}  // namespace brvhost
