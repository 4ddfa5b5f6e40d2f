#include "cfurl.h"

#include <cstring>

#include "cfobject.h"
#include "utf.h"

using namespace brvplatform;

namespace {

class URL final : public Object {
 public:
  explicit URL(std::filesystem::path path) : path_(std::move(path)) {}

  CFTypeID TypeID() const override { return kURLType; }
  bool Equals(const Object& other) const override {
    return other.TypeID() == kURLType && static_cast<const URL&>(other).path_ == path_;
  }
  std::u16string Description() const override { return DecodeUtf8(path_.native()).value_or(u""); }
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace

namespace brvplatform {

CFURLRef NewFileURL(std::filesystem::path path) { return reinterpret_cast<CFURLRef>(new URL(std::move(path))); }

const std::filesystem::path& PathOf(CFURLRef url) { return static_cast<const URL&>(ObjectOf(url)).Path(); }

}  // namespace brvplatform

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* path, CFIndex length, Boolean) {
  if (length == 0) return nullptr;
  return NewFileURL(std::string(reinterpret_cast<const char*>(path), static_cast<std::size_t>(length)));
}

Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean resolveAgainstBase, UInt8* buffer, CFIndex bufferSize) {
  const std::filesystem::path path = resolveAgainstBase ? std::filesystem::absolute(PathOf(url)) : PathOf(url);
  const std::string& text = path.native();
  if (static_cast<CFIndex>(text.size()) >= bufferSize) return false;
  std::memcpy(buffer, text.c_str(), text.size() + 1);
  return true;
}
