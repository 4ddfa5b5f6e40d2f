// The one exported function whose arguments know the C++ library: eu16string::GetStdString fills a std::string, and the
// image's is libc++'s. A program on Linux calls it with its own; here the text goes from one to the other.
#include <cstdint>
#include <cstring>
#include <string>

#include "hosttypes.h"

namespace {

#if defined(__aarch64__)
// Where libc++ for arm64 has a text of up to 22 characters, and their count.
constexpr std::size_t kShortText = 0;
constexpr std::size_t kShortCount = 23;
constexpr unsigned kShortCountShift = 0;
constexpr std::uint8_t kLongMark = 0x80;  // beside the count
struct LongForm {
  char* data;
  std::size_t count, capacity;
};
#else
constexpr std::size_t kShortText = 1;
constexpr std::size_t kShortCount = 0;
constexpr unsigned kShortCountShift = 1;
constexpr std::uint8_t kLongMark = 0x01;
struct LongForm {
  std::size_t capacity, count;
  char* data;
};
#endif

// A std::string as libc++ lays it out: a short text in place, a longer one in memory of operator new. All zero is an
// empty one.
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
    return std::string(reinterpret_cast<const char*>(bytes_) + kShortText, bytes_[kShortCount] >> kShortCountShift);
  }

 private:
  bool IsLong() const { return (bytes_[kShortCount] & kLongMark) != 0; }
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
