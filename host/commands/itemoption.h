// The option that chooses a menu item.
#pragma once

#include "host/batch/offer.h"
#include "host/commands/options.h"

namespace brvhost {

// Takes a number where the value has digits only, else a name. Throws UsageError, which names the option.
void TakeItem(const std::string& option, const std::string& value, Options& options);

// The number of the item that the options choose from those that are offered. Throws UsageError where that is none of
// them or, by its name, several as well.
int ChosenItem(const Offer& offer, const Options& options);

}  // namespace brvhost
