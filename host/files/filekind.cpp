#include "host/files/filekind.h"

#include <fcntl.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "host/files/archive.h"
#include "host/process/descriptor.h"
#include "host/score/musicxmlelements.h"
#include "host/text/inputerror.h"
#include "host/xml/xmlreader.h"

namespace brvhost {
namespace {

// More than comes before the root element of a score.
constexpr std::size_t kHeadSize = std::size_t{1} << 14;

bool HasEnding(const std::string& path, std::string_view ending) {
  return path.size() >= ending.size() && strcasecmp(path.c_str() + path.size() - ending.size(), ending.data()) == 0;
}

// Empty where it cannot be read, and for what has no content of its own.
std::string HeadOf(const std::string& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  struct stat status;
  if (!file || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return "";
  std::string head(kHeadSize, '\0');
  const ssize_t count = read(file.Get(), head.data(), head.size());
  head.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
  return head;
}

// Ends the reading at the root element.
struct RootFound {
  std::string name;
};

class RootHandler : public XmlHandler {
 public:
  void Begin(XmlPosition&) override {}
  void StartElement(const char* name, const XmlAttributes&) override { throw RootFound{name}; }
  void EndElement() override {}
  void Text(std::string_view) override {}
};

// The name of the root element; empty where none is there.
std::string RootOf(std::string_view head) {
  RootHandler handler;
  try {
    ReadXml(head, handler);
  } catch (const RootFound& root) {
    return root.name;
  } catch (const InputError&) {
  }
  return "";
}

bool Exists(const std::string& path) { return access(path.c_str(), F_OK) == 0; }

bool IsBundle(const std::string& folder) {
  for (const char* const part : {"/Contents", "/Info.plist", "/Resources/Info.plist", "/Support Files/Info.plist"}) {
    if (Exists(folder + part)) return true;
  }
  return false;
}

}  // namespace

FileKind KindOf(const std::string& path) {
  struct stat status;
  if (stat(path.c_str(), &status) != 0) return FileKind::kNothing;
  if (S_ISDIR(status.st_mode)) return IsBundle(path) ? FileKind::kBundle : FileKind::kFolder;
  // Opening a pipe would let its writer go on, which then finds no reader.
  const std::string head = S_ISREG(status.st_mode) ? HeadOf(path) : "";
  const bool isScore = IsArchive(head) ? IsNamedMxl(path) : IsRootOfScore(RootOf(head));
  return isScore || HasEnding(path, ".musicxml") ? FileKind::kScore : FileKind::kOther;
}

bool IsNamedMxl(const std::string& path) { return HasEnding(path, ".mxl"); }

bool IsNamedAsScore(const std::string& path) {
  return HasEnding(path, ".musicxml") || HasEnding(path, ".xml") || IsNamedMxl(path);
}

bool IsOtherDocument(const std::string& path) {
  const std::string root = RootOf(HeadOf(path));
  return !root.empty() && !IsRootOfScore(root);
}

}  // namespace brvhost
