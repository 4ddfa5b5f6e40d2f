#include "host/check/balance.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <set>
#include <string_view>
#include <vector>

namespace brvhost {
namespace {

// A function of the kit that leaves its frames loaded by contract.
bool LeavesItsFrames(const char* loader) {
  return loader != nullptr && std::string_view(loader) == "BXUtilIsEmptyMeasure";
}

// The frames that are still loaded, either those of such functions or all others.
std::string Frames(const OpenDocument& document, int item, bool byContract) {
  std::vector<const char*> loaders = document.LoadersOfFrames();
  std::erase_if(loaders, [byContract](const char* loader) { return LeavesItsFrames(loader) != byContract; });
  if (loaders.empty()) return "";
  std::set<std::string> names;
  for (const char* const loader : loaders) names.insert(loader == nullptr ? "a function that is not exported" : loader);
  return fmt::format("item {} leaves frames loaded: {} in all, loaded in {}", item, loaders.size(),
                     fmt::join(names, ", "));
}

}  // namespace

std::string LeftFrames(const OpenDocument& document, int item) {
  const std::vector<std::string> misuses = document.MisusesSoFar().Texts();
  if (!misuses.empty()) return fmt::format("item {} {}", item, misuses.front());
  return Frames(document, item, false);
}

std::string FramesLeftByContract(const Trial& trial, int item) { return Frames(trial.Document(), item, true); }

std::string LeftOpen(const Session& session, int item) {
  if (session.ShowsProgress()) return fmt::format("item {} leaves the progress display open", item);
  return session.Document().EditDepth() == 0 ? "" : fmt::format("item {} leaves an edit open", item);
}

}  // namespace brvhost
