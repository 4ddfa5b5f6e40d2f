#include "host/code/codebytes.h"

namespace brvhost {

std::uint64_t CodeBytes::Number(std::uint64_t at, unsigned size) const {
  const std::string_view bytes = Part(at, size).bytes_;
  std::uint64_t number = 0;
  for (unsigned i = 0; i < size; ++i) {
    const char byte = bytes[order_ == ByteOrder::kLowestFirst ? size - 1 - i : i];
    number = number << 8 | static_cast<unsigned char>(byte);
  }
  return number;
}

std::string_view CodeBytes::Text(std::uint64_t at) const {
  if (at >= bytes_.size()) throw CodeError("ends early");
  const std::string_view rest = bytes_.substr(static_cast<std::size_t>(at));
  const std::size_t end = rest.find('\0');
  if (end == std::string_view::npos) throw CodeError("ends early");
  return rest.substr(0, end);
}

CodeBytes CodeBytes::Part(std::uint64_t at, std::uint64_t size) const {
  if (at > bytes_.size() || size > bytes_.size() - at) throw CodeError("ends early");
  return CodeBytes(bytes_.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(size)), order_);
}

std::uint64_t CodeCursor::Leb() {
  std::uint64_t number = 0;
  for (unsigned shift = 0; shift < 64; shift += 7) {
    const std::uint8_t byte = Byte();
    number |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
    if ((byte & 0x80) == 0) return number;
  }
  throw CodeError("has a number of more than 64 bits");
}

std::string_view CodeCursor::Text() {
  const std::string_view text = bytes_.Text(at_);
  at_ += text.size() + 1;
  return text;
}

}  // namespace brvhost
