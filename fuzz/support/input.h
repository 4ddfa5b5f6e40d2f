// Takes numbers and texts from the bytes of an input, one after another. After its end, numbers are 0 and texts empty.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

class Input {
 public:
  Input(const std::uint8_t* bytes, std::size_t size) : rest_(reinterpret_cast<const char*>(bytes), size) {}

  bool IsAtEnd() const { return rest_.empty(); }

  std::uint8_t Byte() {
    const std::string_view byte = Text(1);
    return byte.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(byte.front());
  }
  bool Flag() { return (Byte() & 1) != 0; }
  // From 0 to limit - 1; the limit is at most 256.
  int Below(int limit) { return Byte() % limit; }
  std::uint16_t Word() {
    const int low = Byte();
    return static_cast<std::uint16_t>(low | Byte() << 8);
  }
  std::uint32_t Long() {
    const std::uint32_t low = Word();
    return low | static_cast<std::uint32_t>(Word()) << 16;
  }

  // The next bytes, or as many as are left.
  std::string_view Text(std::size_t size) {
    const std::string_view text = rest_.substr(0, size);
    rest_.remove_prefix(text.size());
    return text;
  }
  std::string_view Rest() { return Text(rest_.size()); }

 private:
  std::string_view rest_;
};
