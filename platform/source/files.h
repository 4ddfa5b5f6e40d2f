// Files and folders by their paths. A path is bytes, which need not be text; what cannot be read counts as not there.
// Here instead of std::filesystem, whose paths and iterators do not stand it when memory runs out.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brvplatform {

bool Exists(const std::string& path);
bool IsFile(const std::string& path);
bool IsFolder(const std::string& path);

// The path of a name inside of a folder; that of the folder for an empty name.
std::string Inside(const std::string& folder, std::string_view name);
// "c" for "/a/b/c".
std::string_view LastName(std::string_view path);
// "/a/b" for "/a/b/c".
std::string_view FolderOf(std::string_view path);

// From the root, without symbolic links; nothing if there is no such file or folder.
std::optional<std::string> RealPath(const std::string& path);
// From the root; nothing for a relative path if the current folder is gone.
std::optional<std::string> AbsolutePath(const std::string& path);
// The program's own file.
std::optional<std::string> ProgramPath();

// In no order.
std::vector<std::string> NamesIn(const std::string& folder);

}  // namespace brvplatform
