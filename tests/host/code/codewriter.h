// Files of code, put together from numbers and texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/code/codebytes.h"

namespace brvhost {

class CodeWriter {
 public:
  explicit CodeWriter(ByteOrder order = ByteOrder::kLowestFirst) : order_(order) {}

  CodeWriter& Number(std::uint64_t number, unsigned bytes) {
    for (unsigned i = 0; i < bytes; ++i) {
      const unsigned place = order_ == ByteOrder::kLowestFirst ? i : bytes - 1 - i;
      bytes_ += static_cast<char>(number >> 8 * place);
    }
    return *this;
  }
  CodeWriter& Byte(std::uint64_t number) { return Number(number, 1); }
  CodeWriter& Half(std::uint64_t number) { return Number(number, 2); }
  CodeWriter& Word(std::uint64_t number) { return Number(number, 4); }
  CodeWriter& Text(std::string_view text) {
    bytes_ += text;
    return Byte(0);
  }
  CodeWriter& Add(std::string_view bytes) {
    bytes_ += bytes;
    return *this;
  }
  CodeWriter& FillTo(std::size_t size) {
    bytes_.resize(size);
    return *this;
  }

  std::size_t Size() const { return bytes_.size(); }
  const std::string& Bytes() const { return bytes_; }

 private:
  ByteOrder order_;
  std::string bytes_;
};

}  // namespace brvhost
