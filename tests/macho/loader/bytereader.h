// Reads a range of bytes from front to back; reading beyond the end throws.
#pragma once

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

namespace macho {

class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes, std::size_t position = 0) : bytes_(bytes), position_(position) {}

  bool AtEnd() const { return position_ >= bytes_.size(); }
  void MoveTo(std::size_t position) { position_ = position; }

  // A record as it lies in the bytes.
  template <class T>
  T Record() {
    Need(sizeof(T));
    T record;
    std::memcpy(&record, bytes_.data() + position_, sizeof(T));
    position_ += sizeof(T);
    return record;
  }

  std::uint8_t Byte() { return Record<std::uint8_t>(); }

  // A number in groups of seven bits, the lowest first.
  std::uint64_t Uleb() {
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 64; shift += 7) {
      const std::uint8_t byte = Byte();
      value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
      if ((byte & 0x80) == 0) return value;
    }
    throw std::runtime_error("a number of more than 64 bits");
  }

  // The same, with bit 6 of the last group as the sign.
  std::int64_t Sleb() {
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 64; shift += 7) {
      const std::uint8_t byte = Byte();
      value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
      if ((byte & 0x80) != 0) continue;
      if ((byte & 0x40) != 0 && shift + 7 < 64) value |= ~std::uint64_t{0} << (shift + 7);
      return static_cast<std::int64_t>(value);
    }
    throw std::runtime_error("a number of more than 64 bits");
  }

  // The characters up to a 0, which is passed over.
  std::string Text() {
    const std::size_t end = bytes_.find('\0', position_);
    if (end == std::string_view::npos) throw std::runtime_error("a text without an end");
    std::string text(bytes_.substr(position_, end - position_));
    position_ = end + 1;
    return text;
  }

 private:
  void Need(std::size_t count) const {
    if (position_ > bytes_.size() || bytes_.size() - position_ < count) throw std::runtime_error("the file is cut off");
  }

  std::string_view bytes_;
  std::size_t position_;
};

}  // namespace macho
