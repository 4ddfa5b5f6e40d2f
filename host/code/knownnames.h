// Names that are known to be exported.
#pragma once

#include <span>
#include <string_view>

namespace brvhost {

// A library of macOS, and those of its names that the stubs have which extensions are linked with on Linux. It may have
// more.
struct MacLibrary {
  std::string_view path;
  std::span<const std::string_view> names;
};
std::span<const MacLibrary> KnownMacLibraries();

// What an extension exports of the kit, the entry points among it; a name that ends with * stands for all that begin
// so.
std::span<const std::string_view> KitNames();
bool IsOfTheKit(std::string_view name);

// The functions that a host calls.
std::span<const std::string_view> EntryPointNames();

}  // namespace brvhost
