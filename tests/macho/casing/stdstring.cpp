// The one exported function whose arguments know the C++ library: eu16string::GetStdString fills a std::string, and the
// image's is libc++'s. A program on Linux calls it with its own; here the text goes from one to the other.
#include <cstdint>
#include <cstring>
#include <string>

#include "hosttypes.h"

namespace {

// A std::string as libc++ lays it out: in place up to 22 characters, their count doubled in the first byte; else
// capacity with the lowest bit set, count, and memory of operator new. All zero is an empty one.
class LibcxxString {
 public:
  LibcxxString() = default;
  LibcxxString(const LibcxxString&) = delete;
  LibcxxString& operator=(const LibcxxString&) = delete;
  // Both libraries take their memory from malloc.
  ~LibcxxString() {
    if (IsLong()) ::operator delete(Long().data);
  }

  std::string Text() const {
    if (IsLong()) return std::string(Long().data, Long().count);
    return std::string(reinterpret_cast<const char*>(bytes_) + 1, bytes_[0] >> 1);
  }

 private:
  struct LongForm {
    std::size_t capacity, count;
    char* data;
  };

  bool IsLong() const { return (bytes_[0] & 1) != 0; }
  LongForm Long() const {
    LongForm form;
    std::memcpy(&form, bytes_, sizeof(form));
    return form;
  }

  alignas(void*) std::uint8_t bytes_[sizeof(LongForm)] = {};
};

}  // namespace

extern "C" {

void ImageGetStdString(const void* text, LibcxxString* result) __asm__(
    "_ZNK10eu16string12GetStdStringERNSt3__112basic_stringIcNS0_11char_traitsIcEENS0_9allocatorIcEEEE");

BRV_EXPORT void GetStdString(const void* text, std::string& result) __asm__(
    "_ZNK10eu16string12GetStdStringERNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE");

void GetStdString(const void* text, std::string& result) {
  LibcxxString converted;
  ImageGetStdString(text, &converted);
  result = converted.Text();
}

}  // extern "C"
