#include "cfurl.h"

#include <unicode/unistr.h>

#include <cstring>
#include <optional>
#include <utility>

#include "boundary.h"
#include "cfobject.h"
#include "files.h"

using namespace brvplatform;

namespace {

class URL final : public Object {
 public:
  explicit URL(std::string path) : path_(std::move(path)) {}

  CFTypeID TypeID() const override { return kURLType; }
  bool Equals(const Object& other) const override {
    return other.TypeID() == kURLType && static_cast<const URL&>(other).path_ == path_;
  }
  std::u16string Description() const override { return DescriptionOf(path_); }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace

namespace brvplatform {

CFURLRef NewFileURL(std::string path) { return reinterpret_cast<CFURLRef>(new URL(std::move(path))); }

const std::string& PathOf(CFURLRef url) { return static_cast<const URL&>(ObjectOf(url)).Path(); }

std::u16string DescriptionOf(const std::string& path) {
  const icu::UnicodeString text = icu::UnicodeString::fromUTF8(path);
  return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

}  // namespace brvplatform

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* path, CFIndex length, Boolean) {
  if (length == 0) return nullptr;
  return OrNothing(
      [&] { return NewFileURL(std::string(reinterpret_cast<const char*>(path), static_cast<std::size_t>(length))); });
}

Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean resolveAgainstBase, UInt8* buffer, CFIndex bufferSize) {
  return OrNothing([&] {
    const std::optional<std::string> path = resolveAgainstBase ? AbsolutePath(PathOf(url)) : PathOf(url);
    if (!path || static_cast<CFIndex>(path->size()) >= bufferSize) return false;
    std::memcpy(buffer, path->c_str(), path->size() + 1);
    return true;
  });
}
