#include "host/files/fileattributes.h"

#include <sys/xattr.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace brvhost {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";

// The two calls that return as many bytes as fit, or how many there are, asked until they fit. Null, with errno.
template <class Call>
std::optional<std::string> AllOf(Call call) {
  for (;;) {
    const ssize_t size = call(nullptr, 0);
    if (size < 0) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (size == 0) return bytes;
    const ssize_t count = call(bytes.data(), bytes.size());
    if (count < 0 && errno == ERANGE) continue;  // more since then
    if (count < 0) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
  }
}

std::vector<std::string> NamesOfUsers(int file) {
  const auto list = AllOf([file](char* names, std::size_t size) { return flistxattr(file, names, size); });
  std::vector<std::string> names;
  for (std::string_view rest = list ? *list : std::string_view(); !rest.empty();) {
    const std::string name(rest.substr(0, rest.find('\0')));
    rest.remove_prefix(name.size() + 1);
    if (name.starts_with("user.")) names.push_back(name);
  }
  return names;
}

std::optional<std::string> ValueOf(int file, const char* name) {
  return AllOf([file, name](char* value, std::size_t size) { return fgetxattr(file, name, value, size); });
}

[[noreturn]] void ThrowNotKept(const std::string& what) {
  throw std::runtime_error("cannot keep its " + what + ": " + std::strerror(errno));
}

bool IsWithout(int error) { return error == ENODATA || error == ENOTSUP; }

// A new file may have a list from its folder.
void CopyAccessList(int from, int to) {
  const auto list = ValueOf(from, kAccessList);
  if (!list && !IsWithout(errno)) ThrowNotKept("access control list");
  const int result = list ? fsetxattr(to, kAccessList, list->data(), list->size(), 0) : fremovexattr(to, kAccessList);
  if (result != 0 && (list || !IsWithout(errno))) ThrowNotKept("access control list");
}

}  // namespace

void CopyExtendedAttributes(int from, int to) {
  for (const std::string& name : NamesOfUsers(from)) {
    const auto value = ValueOf(from, name.c_str());
    if (!value || fsetxattr(to, name.c_str(), value->data(), value->size(), 0) != 0) {
      ThrowNotKept("extended attribute " + name);
    }
  }
  CopyAccessList(from, to);
}

}  // namespace brvhost
