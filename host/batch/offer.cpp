#include "host/batch/offer.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace brvhost {
namespace {

// Ends each text: none has a character 0.
constexpr char kEnd = '\0';

std::string TakeText(std::string_view& bytes) {
  const std::size_t end = std::min(bytes.find(kEnd), bytes.size());
  std::string text(bytes.substr(0, end));
  bytes.remove_prefix(std::min(end + 1, bytes.size()));
  return text;
}

}  // namespace

std::string EncodeOffer(const Offer& offer) {
  std::string bytes(1, offer.isEnabled ? '1' : '0');
  for (std::size_t i = 0; i < offer.items.size(); ++i) {
    const MenuItem& item = offer.items[i];
    bytes += static_cast<char>(i < offer.matches.size() ? offer.matches[i] : NameMatch::kNone);
    for (const std::string* const text : {&item.name, &item.undoName, &item.explanation}) bytes.append(*text) += kEnd;
  }
  return bytes;
}

Offer DecodeOffer(std::string_view bytes) {
  Offer offer;
  offer.isEnabled = bytes.starts_with('1');
  bytes.remove_prefix(std::min<std::size_t>(1, bytes.size()));
  while (!bytes.empty()) {
    offer.matches.push_back(static_cast<NameMatch>(bytes.front()));
    bytes.remove_prefix(1);
    std::string name = TakeText(bytes);
    std::string undoName = TakeText(bytes);
    offer.items.push_back({std::move(name), std::move(undoName), TakeText(bytes)});
  }
  return offer;
}

}  // namespace brvhost
