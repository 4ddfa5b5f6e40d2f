#include "host/check/importfacts.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "host/check/placedcode.h"
#include "host/code/knownnames.h"
#include "host/text/printable.h"
#include "host/text/shortlist.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

// What `check` finds wrong with the first code for macOS.
template <class Check>
std::string ForEachMacImage(const std::string& path, const Check& check) {
  for (const PlacedCode& placed : CodeOf(path)) {
    if (!placed.code.isForMacOS) continue;
    const std::string folder = fs::path(PathOf(path, placed)).parent_path().string();
    for (const CodeImage& image : ReadableImagesOf(path, placed)) {
      if (const std::string wrong = check(image, folder); !wrong.empty()) {
        return fmt::format("{} {}", Shown(placed, image), wrong);
      }
    }
  }
  return "";
}

bool IsOfTheSystem(std::string_view library) {
  return library.starts_with("/usr/lib/") || library.starts_with("/System/Library/");
}

// A path in code that is in `folder`; other places than beside it are no places in a bundle.
std::string FromLoader(std::string_view path, const std::string& folder) {
  constexpr std::string_view kLoader = "@loader_path";
  return path.starts_with(kLoader) ? folder + std::string(path.substr(kLoader.size())) : "";
}

bool IsFileIn(const std::string& bundle, const std::string& path) {
  std::error_code error;
  const fs::path file = fs::canonical(path, error);
  if (error || !fs::is_regular_file(file, error)) return false;
  const fs::path top = fs::canonical(bundle, error);
  return !error && std::ranges::mismatch(top, file).in1 == top.end();
}

bool IsInBundle(const CodeLibrary& library, const CodeImage& image, const std::string& folder,
                const std::string& bundle) {
  constexpr std::string_view kSearched = "@rpath";
  if (!library.path.starts_with(kSearched)) return IsFileIn(bundle, FromLoader(library.path, folder));
  return std::ranges::any_of(image.SearchFolders(), [&](const std::string& searched) {
    const std::string place = FromLoader(searched, folder);
    return !place.empty() && IsFileIn(bundle, place + library.path.substr(kSearched.size()));
  });
}

std::string ForeignLibrary(const CodeImage& image, const std::string& folder, const std::string& bundle) {
  for (const CodeLibrary& library : image.Libraries()) {
    if (library.mayBeMissing || IsOfTheSystem(library.path) || IsInBundle(library, image, folder, bundle)) continue;
    return fmt::format("needs {}, which is neither in macOS nor in the bundle", Excerpt(library.path));
  }
  return "";
}

std::string ImportsFromNoLibrary(const CodeImage& image) {
  std::vector<std::string> names;
  for (const CodeImport& entry : image.Imports()) {
    if (entry.from != CodeImport::kLibrary && !entry.mayBeMissing) names.push_back(entry.name);
  }
  return names.empty() ? "" : fmt::format("imports {} from no library", ShortList(names));
}

// Empty where the import is known, or nothing is known of its library; else the library.
std::string_view LibraryWithout(const CodeImport& entry, const CodeImage& image) {
  if (entry.from != CodeImport::kLibrary) return "";
  const std::string_view library = image.Libraries()[entry.library].path;
  const auto known = std::ranges::find(KnownMacLibraries(), library, &MacLibrary::path);
  if (known == KnownMacLibraries().end() || std::ranges::find(known->names, entry.name) != known->names.end())
    return "";
  return library;
}

}  // namespace

std::string ImportsFromMacOS(const std::string& path) {
  return ForEachMacImage(path, [&path](const CodeImage& image, const std::string& folder) {
    const std::string library = ForeignLibrary(image, folder, path);
    return library.empty() ? ImportsFromNoLibrary(image) : library;
  });
}

std::string ImportsKnownNames(const std::string& path) {
  return ForEachMacImage(path, [](const CodeImage& image, const std::string&) -> std::string {
    std::vector<std::string> names;
    for (const CodeImport& entry : image.Imports()) {
      const std::string_view library = LibraryWithout(entry, image);
      if (!library.empty())
        names.push_back(fmt::format("{} from {}", entry.name, fs::path(library).filename().string()));
    }
    return names.empty() ? "" : fmt::format("imports {}, which brvhost cannot vouch for", ShortList(names));
  });
}

}  // namespace brvhost
