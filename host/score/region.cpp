#include "host/score/region.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <system_error>

#include "host/text/inputerror.h"

namespace brvhost {
namespace {

std::optional<int> ParseNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 1) return std::nullopt;
  return number;
}

struct Span {
  std::int16_t first;
  std::int16_t last;
};

Span SpanOf(const std::optional<NumberRange>& range, int count, const char* what) {
  if (!range) return {1, static_cast<std::int16_t>(count)};
  if (range->first > count) {
    throw InputError(fmt::format("the region starts at {} {}, but the score has only {}", what, range->first, count));
  }
  return {static_cast<std::int16_t>(range->first),
          static_cast<std::int16_t>(std::min(range->last.value_or(count), count))};
}

std::int32_t Position(const std::optional<Fraction>& quarters, std::int32_t otherwise) {
  return quarters ? quarters->Rounded(kTicksPerQuarter).value_or(INT32_MAX) : otherwise;
}

}  // namespace

std::optional<NumberRange> ParseNumberRange(const std::string& text) {
  const std::string_view view(text);
  const std::size_t dash = view.find('-');
  const std::string_view first = view.substr(0, dash);
  if (dash == std::string_view::npos) {
    const auto number = ParseNumber(first);
    return number ? std::optional(NumberRange{*number, *number}) : std::nullopt;
  }
  const std::string_view last = view.substr(dash + 1);
  if (first.empty() && last.empty()) return std::nullopt;
  const auto from = first.empty() ? std::optional(1) : ParseNumber(first);
  const auto to = last.empty() ? std::nullopt : ParseNumber(last);
  if (!from || (!last.empty() && !to) || (to && *to < *from)) return std::nullopt;
  return NumberRange{*from, to};
}

EREGION WholeScore(const Score& score) {
  EREGION region{};
  region.startStaff = 1;
  region.startMeasure = 1;
  region.endStaff = static_cast<std::int16_t>(score.staves);
  region.endMeasure = static_cast<std::int16_t>(score.measures);
  region.endPosition = INT32_MAX;
  return region;
}

std::optional<EREGION> RegionOf(const RegionRequest& request, const Score& score) {
  if (request.IsEmpty()) return std::nullopt;
  EREGION region = WholeScore(score);
  const Span staves = SpanOf(request.staves, score.staves, "staff");
  const Span measures = SpanOf(request.measures, score.measures, "measure");
  region.startStaff = staves.first;
  region.endStaff = staves.last;
  region.startMeasure = measures.first;
  region.endMeasure = measures.last;
  region.startPosition = Position(request.startAt, 0);
  region.endPosition = Position(request.endAt, INT32_MAX);
  return region;
}

}  // namespace brvhost
