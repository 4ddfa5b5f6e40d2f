#include "binaryplist.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "cfstring.h"
#include "propertyvalue.h"
#include "utf.h"

namespace brvplatform {
namespace {

constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kTrailerSize = 32;
constexpr std::size_t kMaxNumberSize = 8;

// The kinds of objects, in the upper half of their first byte.
enum Kind { kSimple = 0, kInteger, kReal, kDate, kData, kAscii, kUtf16, kUid = 8, kArray = 10, kDictionary = 13 };

struct BinaryObject {
  Kind kind = kSimple;
  std::uint64_t count = 0;  // of what it consists of: bytes, units, references or pairs of them
  std::string_view content;
};

class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  std::optional<Dictionary> Top() {
    if (!ReadTrailer() || !AreObjectsSound()) return std::nullopt;
    const auto top = ObjectAt(top_);
    if (top->kind != kDictionary) return std::nullopt;
    Dictionary dictionary;
    for (std::uint64_t i = 0; i < top->count; ++i) {
      const auto key = ObjectAt(Reference(*top, i));
      if (key->kind != kAscii && key->kind != kUtf16) return std::nullopt;
      auto text = TextOf(*key);
      if (text) dictionary[std::move(*text)] = ValueOf(*ObjectAt(Reference(*top, top->count + i)));
    }
    return dictionary;
  }

 private:
  std::uint64_t Number(std::size_t at, std::size_t size) const {
    std::uint64_t number = 0;
    for (const char byte : bytes_.substr(at, size)) number = number << 8 | static_cast<unsigned char>(byte);
    return number;
  }

  // Whether the table lies where and as large as the end of the file states.
  bool ReadTrailer() {
    if (bytes_.size() < kHeaderSize + kTrailerSize) return false;
    const std::size_t end = bytes_.size() - kTrailerSize;
    offsetSize_ = static_cast<std::size_t>(Number(end + 6, 1));
    referenceSize_ = static_cast<std::size_t>(Number(end + 7, 1));
    objects_ = Number(end + 8, 8);
    top_ = Number(end + 16, 8);
    table_ = Number(end + 24, 8);
    const auto isSize = [](std::size_t size) { return size >= 1 && size <= kMaxNumberSize; };
    return isSize(offsetSize_) && isSize(referenceSize_) && table_ <= end && objects_ <= (end - table_) / offsetSize_ &&
           top_ < objects_;
  }

  // Whether each object lies before the table and refers to others that exist. Objects that share their bytes, which no
  // writer makes, could hold many more references than the file has bytes.
  bool AreObjectsSound() const {
    std::uint64_t references = 0;
    for (std::uint64_t i = 0; i < objects_; ++i) {
      const auto object = ObjectAt(i);
      if (!object) return false;
      if (object->kind != kArray && object->kind != kDictionary) continue;
      const std::uint64_t own = object->content.size() / referenceSize_;
      references += own;
      if (references > bytes_.size()) return false;
      for (std::uint64_t j = 0; j < own; ++j) {
        if (Reference(*object, j) >= objects_) return false;
      }
    }
    return true;
  }

  std::uint64_t Reference(const BinaryObject& object, std::uint64_t index) const {
    const auto start = static_cast<std::size_t>(object.content.data() - bytes_.data());
    return Number(start + index * referenceSize_, referenceSize_);
  }

  std::optional<BinaryObject> ObjectAt(std::uint64_t number) const {
    std::uint64_t at = Number(table_ + number * offsetSize_, offsetSize_);
    if (at < kHeaderSize || at >= table_) return std::nullopt;
    const auto marker = static_cast<unsigned char>(bytes_[at++]);
    BinaryObject object{static_cast<Kind>(marker >> 4), marker & 0x0Fu, {}};
    std::uint64_t size = UnitSize(object.kind);
    if (size == 0) {
      size = FixedSize(object);
      if (size > table_ - at) return std::nullopt;
    } else {
      if (object.count == 0x0F && !ReadLongCount(at, object.count)) return std::nullopt;
      if (object.count > (table_ - at) / size) return std::nullopt;
      size *= object.count;
    }
    object.content = bytes_.substr(at, size);
    return object;
  }

  // The bytes of each part of an object that has a count; 0 for other objects.
  std::size_t UnitSize(Kind kind) const {
    switch (kind) {
      case kData:
      case kAscii:
        return 1;
      case kUtf16:
        return 2;
      case kArray:
        return referenceSize_;
      case kDictionary:
        return 2 * referenceSize_;
      default:
        return 0;
    }
  }

  // More than any file has for what is no object.
  static std::uint64_t FixedSize(const BinaryObject& object) {
    constexpr std::uint64_t kNone = UINT64_MAX;
    switch (object.kind) {
      case kSimple:
        return object.count == 0 || object.count == 8 || object.count == 9 || object.count == 15 ? 0 : kNone;
      case kInteger:
        return object.count <= 4 ? std::uint64_t{1} << object.count : kNone;
      case kReal:
        return object.count == 2 || object.count == 3 ? std::uint64_t{1} << object.count : kNone;
      case kDate:
        return object.count == 3 ? 8 : kNone;
      case kUid:
        return object.count + 1;
      default:
        return kNone;
    }
  }

  // A count of 15 or more is a number of its own after the first byte.
  bool ReadLongCount(std::uint64_t& at, std::uint64_t& count) const {
    if (at >= table_) return false;
    const auto marker = static_cast<unsigned char>(bytes_[at++]);
    const std::size_t size = std::size_t{1} << (marker & 0x0F);
    if (marker >> 4 != kInteger || size > kMaxNumberSize || size > table_ - at) return false;
    count = Number(at, size);
    at += size;
    return true;
  }

  static std::optional<std::u16string> TextOf(const BinaryObject& object) {
    return object.kind == kAscii ? DecodeUtf8(object.content) : DecodeUtf16Units(object.content, true);
  }

  static Owned<CFTypeRef> ValueOf(const BinaryObject& object) {
    if (object.kind != kAscii && object.kind != kUtf16) return NewOtherValue();
    auto text = TextOf(object);
    return text ? Owned<CFTypeRef>(NewString(std::move(*text))) : NewOtherValue();
  }

  std::string_view bytes_;
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::uint64_t objects_ = 0;
  std::uint64_t top_ = 0;    // the number of the object that holds the others
  std::uint64_t table_ = 0;  // of the offsets of the objects
};

}  // namespace

std::optional<Dictionary> ParseBinary(std::string_view bytes) { return Reader(bytes).Top(); }

}  // namespace brvplatform
