#include "host/fuzz/roundplayer.h"

#include <new>

#include "host/bundle/entrypoints.h"
#include "host/bundle/loadedbundle.h"
#include "host/check/eachitem.h"
#include "host/process/memoryshortage.h"

namespace brvhost {
namespace {

constexpr std::uint64_t kMaxMemory = 1 << 30;

Extension Loaded(const std::string& bundle) {
  try {
    return Extension(bundle);
  } catch (const ThrownByExtension& thrown) {
    throw BundleError(bundle + ": " + thrown.what());
  }
}

int ItemsOf(const Extension& extension, const std::string& bundle) {
  const int items = ItemCountOf(extension);
  if (items == 0) throw BundleError(bundle + ": offers no menu items");
  return items;
}

}  // namespace

RoundPlayer::RoundPlayer(const std::string& bundle)
    : limit_(kMaxMemory, 1), extension_(Loaded(bundle)), items_(ItemsOf(extension_, bundle)) {}

std::optional<Finding> RoundPlayer::Play(std::uint64_t seed, const std::function<void(const std::string&)>& announce) {
  Round round(seed, items_, listeners_);
  if (announce) announce(round.Description());
  try {
    return WithEnoughMemory([&] { return round.Play(extension_); });
  } catch (const std::bad_alloc&) {
    return Finding{FindingKind::kShortage, "takes more than 1 GB of memory"};
  }
}

std::optional<Finding> RoundPlayer::End() const {
  try {
    extension_.Terminate();
    return std::nullopt;
  } catch (const ThrownByExtension& thrown) {
    return Finding{FindingKind::kException, thrown.what()};
  }
}

}  // namespace brvhost
