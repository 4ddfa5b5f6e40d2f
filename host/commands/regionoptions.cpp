#include "host/commands/regionoptions.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/commands/usageerror.h"
#include "host/score/fraction.h"
#include "host/score/numberrange.h"

namespace brvhost {
namespace {

std::optional<NumberRange> RangeOption(const char* name, const std::string& text) {
  if (text.empty()) return std::nullopt;
  const auto range = ParseNumberRange(text);
  if (!range) throw UsageError(fmt::format("{} {}: is not a range such as 3, 2-5, 2- or -5", name, text));
  if (range->IsReversed()) throw UsageError(fmt::format("{} {}: starts after its end", name, text));
  return range;
}

std::optional<Fraction> QuartersOption(const char* name, const std::string& text) {
  if (text.empty()) return std::nullopt;
  const auto quarters = ParseFraction(text);
  if (!quarters || quarters->IsNegative()) {
    throw UsageError(fmt::format("{} {}: is not a number of quarter notes such as 2, 5/2 or 2.5", name, text));
  }
  return quarters;
}

std::vector<int> LayersOption(const std::string& text) {
  if (text.empty()) return {};
  std::vector<int> layers;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t comma = std::min(text.find(',', start), text.size());
    const auto range = ParseNumberRange(text.substr(start, comma - start));
    if (!range || range->last != range->first) {
      throw UsageError(fmt::format("--layers {}: is not a list of layers such as 1,3", text));
    }
    layers.push_back(range->first - 1);
    start = comma + 1;
  }
  return layers;
}

// Layers may be chosen in the whole score too.
void CheckAll(const Options& options) {
  const std::initializer_list<std::pair<const char*, const std::string&>> parts = {{"--staves", options.staves},
                                                                                   {"--measures", options.measures},
                                                                                   {"--start-at", options.startAt},
                                                                                   {"--end-at", options.endAt}};
  for (const auto& [name, value] : parts) {
    if (value.empty()) continue;
    throw UsageError(fmt::format("--all and {} {}: the whole score or a part of it, not both", name, value));
  }
}

// Whether the region ends in the measure that it starts in, whatever the score.
bool IsInOneMeasure(const RegionRequest& region) {
  return region.measures && region.measures->last == region.measures->first;
}

void CheckOrder(const RegionRequest& region, const Options& options) {
  if (!region.startAt || !region.endAt || !IsInOneMeasure(region)) return;
  if (PositionAt(*region.startAt) <= PositionAt(*region.endAt)) return;
  throw UsageError(fmt::format("--start-at {}: is after --end-at {} in the same measure, {}", options.startAt,
                               options.endAt, region.measures->first));
}

}  // namespace

RegionRequest RegionOptions(const Options& options) {
  RegionRequest region;
  region.staves = RangeOption("--staves", options.staves);
  region.measures = RangeOption("--measures", options.measures);
  region.startAt = QuartersOption("--start-at", options.startAt);
  region.endAt = QuartersOption("--end-at", options.endAt);
  region.layers = LayersOption(options.layers);
  region.all = options.all;
  if (region.all) CheckAll(options);
  CheckOrder(region, options);
  return region;
}

void CheckSelection(const RegionRequest& region, const Options& options, const Terminal& terminal) {
  if (!region.IsEmpty() || options.yes || terminal.CanAsk()) return;
  throw UsageError(
      "nothing is selected, and there is no terminal to ask on: name a region (--staves, --measures, --start-at, "
      "--end-at, --layers), take the whole score (--all), or agree to every question (--yes)");
}

}  // namespace brvhost
