// The systems that a bundle has executables for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brvhost {

// The system whose executables are in the folder of that name: "Linux on arm64" for Linux-arm64. Empty for a folder
// that holds something else.
std::string SystemOf(std::string_view folder);

// The folder of a bundle that its executables have their folders in, with a slash at its end: Contents, or the bundle
// itself where that has no such folder.
std::string FolderOfContents(const std::string& bundle);

// The names of the folders in there that are not empty, those for macOS first.
std::vector<std::string> FilledFolders(const std::string& bundle);

// The systems of these folders.
std::vector<std::string> SystemsOf(const std::string& bundle);

}  // namespace brvhost
