#include "host/commands/regionoptions.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/commands/usageerror.h"
#include "host/score/fraction.h"
#include "host/score/numberrange.h"
#include "host/text/blanks.h"

namespace brvhost {
namespace {

// `others` is what else the list may be of, for the message.
std::vector<NumberRange> RangesOption(const char* name, const std::string& list, const char* others = "") {
  std::vector<NumberRange> ranges;
  if (list.empty()) return ranges;
  for (const std::string& item : TextsOfList(list)) {
    const std::string_view text = WithoutBlanks(item);
    const auto range = ParseNumberRange(text);
    if (!range) {
      throw UsageError(fmt::format("{} {}: is not a list of ranges such as 3, 2-5, 2- or -5{}", name, list, others));
    }
    if (range->IsReversed()) {
      const std::string which = list == text ? "" : fmt::format("{} ", text);
      throw UsageError(fmt::format("{} {}: {}starts after its end", name, list, which));
    }
    ranges.push_back(*range);
  }
  return ranges;
}

// All by order, or all by printed numbers.
std::vector<MeasureRange> MeasuresOption(const std::string& list) {
  std::vector<MeasureRange> measures;
  if (list.find('m') == std::string::npos) {
    const char* const printed = ", nor of printed numbers such as m12";
    for (const NumberRange& range : RangesOption("--measures", list, printed)) measures.push_back({range, {}, {}});
    return measures;
  }
  for (const std::string& text : TextsOfPrintedList(list)) {
    const auto range = ParsePrintedRange(WithoutBlanks(text));
    if (!range) {
      throw UsageError(fmt::format(
          "--measures {}: is not a list of printed numbers such as m12, m12-m20, m12-, -m20 or m12/2 (the second "
          "measure with that number): m stands before each, and a backslash before a dash, a comma or a slash within "
          "one",
          list));
    }
    measures.push_back(*range);
  }
  return measures;
}

std::vector<std::string> VoicesOption(const std::string& list) {
  std::vector<std::string> voices;
  if (list.empty()) return voices;
  for (const std::string& text : TextsOfList(list)) {
    voices.emplace_back(WithoutBlanks(text));
    if (voices.back().empty()) throw UsageError(fmt::format("--voices {}: has an empty name in it", list));
  }
  return voices;
}

std::optional<Fraction> QuartersOption(const char* name, const std::string& text) {
  if (text.empty()) return std::nullopt;
  const auto quarters = ParseFraction(text);
  if (!quarters || quarters->IsNegative()) {
    throw UsageError(fmt::format("{} {}: is not a number of quarter notes such as 2, 5/2 or 2.5", name, text));
  }
  return quarters;
}

// Layers may be chosen in the whole score too.
void CheckAll(const Options& options) {
  const std::string parts = options.parts.empty() ? "" : options.parts[0];
  const std::initializer_list<std::pair<const char*, const std::string&>> selected = {{"--staves", options.staves},
                                                                                      {"--parts", parts},
                                                                                      {"--measures", options.measures},
                                                                                      {"--start-at", options.startAt},
                                                                                      {"--end-at", options.endAt}};
  for (const auto& [name, value] : selected) {
    if (value.empty()) continue;
    throw UsageError(fmt::format("--all and {} {}: the whole score or a part of it, not both", name, value));
  }
}

void CheckAlternatives(const RegionRequest& region) {
  if (!region.parts.empty() && !region.staves.empty()) {
    throw UsageError("--parts and --staves: both name staves; give one of them");
  }
  if (!region.voices.empty() && !region.layers.empty()) {
    throw UsageError("--voices and --layers: both name layers; give one of them");
  }
}

// Whether the region ends in the measure that it starts in, whatever the score.
bool IsInOneMeasure(const RegionRequest& region) {
  const auto& measures = region.measures;
  return !measures.empty() && std::ranges::all_of(measures, [&measures](const MeasureRange& range) {
    const NumberRange& byOrder = range.byOrder;
    return !range.IsPrinted() && byOrder.last == byOrder.first && byOrder.first == measures[0].byOrder.first;
  });
}

void CheckOrder(const RegionRequest& region, const Options& options) {
  if (!region.startAt || !region.endAt || !IsInOneMeasure(region)) return;
  if (PositionAt(*region.startAt) <= PositionAt(*region.endAt)) return;
  throw UsageError(fmt::format("--start-at {}: is after --end-at {} in the same measure, {}", options.startAt,
                               options.endAt, region.measures[0].byOrder.first));
}

}  // namespace

RegionRequest RegionOptions(const Options& options) {
  RegionRequest region;
  region.staves = RangesOption("--staves", options.staves);
  region.measures = MeasuresOption(options.measures);
  region.startAt = QuartersOption("--start-at", options.startAt);
  region.endAt = QuartersOption("--end-at", options.endAt);
  region.layers = RangesOption("--layers", options.layers);
  region.parts = options.parts;
  region.voices = VoicesOption(options.voices);
  CheckAlternatives(region);
  region.all = options.all;
  if (region.all) CheckAll(options);
  CheckOrder(region, options);
  return region;
}

void CheckSelection(const RegionRequest& region, const Options& options, const Terminal& terminal) {
  if (!region.IsEmpty() || options.yes || terminal.CanAsk()) return;
  throw UsageError(
      "nothing is selected, and there is no terminal to ask on: name a region (--staves, --parts, --measures, "
      "--start-at, --end-at, --layers, --voices), take the whole score (--all), or agree to every question (--yes)");
}

}  // namespace brvhost
