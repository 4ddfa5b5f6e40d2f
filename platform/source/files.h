// Files and folders by their paths. A path is bytes, which need not be valid text; what cannot be read counts as
// missing. std::filesystem is not used because its paths and iterators fail badly when memory runs out.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brvplatform {

bool Exists(const std::string& path);
bool IsFile(const std::string& path);
bool IsFolder(const std::string& path);

// The path of a name in a folder; for an empty name, the path of the folder.
std::string Inside(const std::string& folder, std::string_view name);
// "c" for "/a/b/c".
std::string_view LastName(std::string_view path);
// "/a/b" for "/a/b/c".
std::string_view FolderOf(std::string_view path);

// The absolute path without symbolic links; nothing if there is no such file or folder.
std::optional<std::string> RealPath(const std::string& path);
// The absolute path; nothing for a relative path if the current folder has been removed.
std::optional<std::string> AbsolutePath(const std::string& path);
// The program's own file.
std::optional<std::string> ProgramPath();

// In no order.
std::vector<std::string> NamesIn(const std::string& folder);

}  // namespace brvplatform
