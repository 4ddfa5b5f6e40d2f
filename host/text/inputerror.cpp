#include "host/text/inputerror.h"

#include <fmt/format.h>

namespace brvhost {

std::string Located(const std::string& file, TextPlace place, const std::string& message) {
  if (place.line == 0) return fmt::format("{}: {}", file, message);
  return fmt::format("{}:{}:{}: {}", file, place.line, place.column, message);
}

}  // namespace brvhost
