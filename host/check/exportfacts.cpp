#include "host/check/exportfacts.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include "host/check/placedcode.h"
#include "host/code/codebytes.h"
#include "host/code/knownnames.h"
#include "host/text/shortlist.h"

namespace brvhost {
namespace {

std::vector<std::string> MissingIn(const CodeImage& image) {
  std::vector<std::string> missing;
  for (const std::string_view name : EntryPointNames()) {
    if (!image.Exports().contains(std::string(name))) missing.emplace_back(name);
  }
  return missing;
}

// What linkers add, and sanitizers.
bool IsOfTheTools(std::string_view name) {
  constexpr std::string_view kNames[] = {"_init", "_fini", "_edata", "_end", "__bss_start"};
  return name.starts_with("__odr_asan") || std::ranges::find(kNames, name) != std::end(kNames);
}

std::vector<std::string> ForeignIn(const CodeImage& image) {
  std::vector<std::string> foreign;
  std::ranges::copy_if(image.Exports(), std::back_inserter(foreign),
                       [](const std::string& name) { return !IsOfTheKit(name) && !IsOfTheTools(name); });
  return foreign;
}

std::string MissingFrom(const std::string& path, const PlacedCode& placed) {
  try {
    for (const CodeImage& image : ImagesOf(path, placed)) {
      const std::vector<std::string> missing = MissingIn(image);
      if (!missing.empty()) return fmt::format("{} exports no {}", Shown(placed, image), fmt::join(missing, ", "));
    }
    return "";
  } catch (const CodeError& error) {
    return fmt::format("{} {}", ShownPath(placed), error.what());
  }
}

}  // namespace

std::string ExportsForEachSystem(const std::string& path) {
  for (const PlacedCode& placed : CodeOf(path)) {
    if (!IsExecutableOf(path, placed)) continue;
    if (std::string wrong = MissingFrom(path, placed); !wrong.empty()) return wrong;
  }
  return "";
}

std::string ExportsNothingElse(const std::string& path) {
  for (const PlacedCode& placed : CodeOf(path)) {
    if (!IsExecutableOf(path, placed)) continue;
    for (const CodeImage& image : ReadableImagesOf(path, placed)) {
      const std::vector<std::string> foreign = ForeignIn(image);
      if (!foreign.empty()) return fmt::format("{} exports {}", Shown(placed, image), ShortList(foreign));
    }
  }
  return "";
}

}  // namespace brvhost
