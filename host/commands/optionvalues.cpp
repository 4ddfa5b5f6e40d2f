#include "host/commands/optionvalues.h"

#include <fmt/format.h>
#include <strings.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>

#include "host/commands/usageerror.h"
#include "host/files/sizelimit.h"

namespace brvhost {
namespace {

// The whole number that a text starts with, which is taken off it.
template <class Number>
std::optional<Number> TakeNumber(std::string_view& text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

// How many times a size doubles with its unit.
std::optional<int> DoublingsOf(const std::string& unit) {
  if (unit.empty() || strcasecmp(unit.c_str(), "B") == 0) return 0;
  int doublings = 0;
  for (const char* const letter : {"K", "M", "G", "T", "P"}) {
    doublings += 10;
    for (const char* const ending : {"", "B", "iB"}) {
      if (strcasecmp(unit.c_str(), (std::string(letter) + ending).c_str()) == 0) return doublings;
    }
  }
  return std::nullopt;
}

std::optional<std::uint64_t> ParseSize(std::string_view text) {
  const auto number = TakeNumber<std::uint64_t>(text);
  if (!number || *number == 0) return std::nullopt;
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const auto doublings = DoublingsOf(std::string(text));
  if (!doublings || *number > kMaxSizeLimit >> *doublings) return std::nullopt;
  return *number << *doublings;
}

}  // namespace

void RefuseEmpty(const std::string& option, const std::string& value) {
  if (value.empty()) throw UsageError(option + ": is empty");
}

template <class Number>
Number NumberFrom(const std::string& option, const std::string& value, Number first, Number last) {
  RefuseEmpty(option, value);
  std::string_view rest(value);
  const auto number = TakeNumber<Number>(rest);
  if (number && rest.empty() && *number >= first && *number <= last) return *number;
  const std::string end = last == std::numeric_limits<Number>::max() ? "on" : fmt::format("to {}", last);
  throw UsageError(fmt::format("{} {}: is not a whole number from {} {}", option, value, first, end));
}

template int NumberFrom(const std::string&, const std::string&, int, int);
template std::int64_t NumberFrom(const std::string&, const std::string&, std::int64_t, std::int64_t);

std::uint64_t SizeFrom(const std::string& option, const std::string& value) {
  RefuseEmpty(option, value);
  if (const auto size = ParseSize(value)) return *size;
  throw UsageError(fmt::format("{} {}: is not a size such as 500000, 20MB or 2GB, from 1 byte to {} TB", option, value,
                               kMaxSizeLimit >> 40));
}

}  // namespace brvhost
