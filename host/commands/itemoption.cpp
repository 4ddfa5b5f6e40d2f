#include "host/commands/itemoption.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "host/commands/optionvalues.h"
#include "host/commands/usageerror.h"
#include "host/text/blanks.h"
#include "host/text/shortlist.h"

namespace brvhost {
namespace {

// The items that fit the name best; none where none does.
std::vector<std::size_t> BestOf(const std::vector<NameMatch>& matches) {
  std::vector<std::size_t> best;
  const NameMatch most = matches.empty() ? NameMatch::kNone : std::ranges::max(matches);
  for (std::size_t i = 0; i < matches.size() && most != NameMatch::kNone; ++i) {
    if (matches[i] == most) best.push_back(i);
  }
  return best;
}

int ItemNamed(const Offer& offer, const std::string& name) {
  std::vector<std::size_t> items = BestOf(offer.matches);
  if (items.size() == 1) return static_cast<int>(items[0]);
  const std::string how =
      items.empty() ? "is in the name of no item" : fmt::format("is in the names of {} items", items.size());
  std::vector<std::string> choices;
  for (std::size_t i = 0; i < offer.items.size(); ++i) {
    const bool isChoice = items.empty() || std::ranges::find(items, i) != items.end();
    if (isChoice) choices.push_back(fmt::format("{} {}", i, offer.items[i].name));
  }
  throw UsageError(fmt::format("--item {}: {}: {}", name, how, choices.empty() ? "there is none" : ShortList(choices)));
}

}  // namespace

void TakeItem(const std::string& option, const std::string& value, Options& options) {
  RefuseEmpty(option, value);
  if (value.find_first_not_of("0123456789") != std::string::npos) {
    options.itemName = WithoutBlanks(value);
    RefuseEmpty(option, options.itemName);
    return;
  }
  options.item = NumberFrom(option, value, 0, std::numeric_limits<int>::max());
}

int ChosenItem(const Offer& offer, const Options& options) {
  if (!options.itemName.empty()) return ItemNamed(offer, options.itemName);
  const auto count = std::ssize(offer.items);
  if (options.item < count) return options.item;
  throw UsageError(fmt::format("--item {}: the extension has {} items, from 0", options.item, count));
}

}  // namespace brvhost
