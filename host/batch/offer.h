// What an extension offers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/bundle/extension.h"

namespace brvhost {

struct Offer {
  std::vector<MenuItem> items;
  std::vector<NameMatch> matches;  // of each item with the name that is looked for
  bool isEnabled = true;           // whether the host offers the items at all
};

// The bytes of an offer, and back.
std::string EncodeOffer(const Offer& offer);
Offer DecodeOffer(std::string_view bytes);

}  // namespace brvhost
