#include "host/commands/factselection.h"

#include <fmt/format.h>

#include <cstddef>
#include <optional>
#include <regex>
#include <string>

#include "host/commands/usageerror.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

// The library's parser calls itself for what is nested.
constexpr std::size_t kMaxLength = 1000;

// Null where the option is not given.
std::optional<std::regex> PatternOf(const char* option, const std::string& text) {
  if (text.empty()) return std::nullopt;
  if (text.size() > kMaxLength) {
    throw UsageError(fmt::format("{}: is longer than {} characters: {}", option, kMaxLength, Excerpt(text)));
  }
  try {
    return std::regex(text);
  } catch (const std::regex_error&) {
    throw UsageError(fmt::format("{} {}: is no regular expression", option, text));
  }
}

}  // namespace

std::vector<const Fact*> SelectedFacts(const Options& options) {
  const auto include = PatternOf("--include", options.include);
  const auto exclude = PatternOf("--exclude", options.exclude);
  std::vector<const Fact*> facts;
  for (const Fact& fact : AllFacts()) {
    if (include && !std::regex_search(fact.name, *include)) continue;
    if (exclude && std::regex_search(fact.name, *exclude)) continue;
    facts.push_back(&fact);
  }
  if (!facts.empty()) return facts;
  if (!exclude) {
    throw UsageError(
        fmt::format("--include {}: is in the name of no fact; `brvhost check --list` lists them", options.include));
  }
  throw UsageError(include ? "--include and --exclude leave no fact" : "--exclude leaves no fact");
}

}  // namespace brvhost
