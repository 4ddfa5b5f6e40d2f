// The numbers and texts in a file of code. Whoever wrote it may mean harm: nothing beyond its end is read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace brvhost {

// A file of code that is not what it seems to be. The message is a clause about the file.
class CodeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class ByteOrder { kLowestFirst, kHighestFirst };

// All of it throws CodeError where the bytes end too early.
class CodeBytes {
 public:
  explicit CodeBytes(std::string_view bytes, ByteOrder order = ByteOrder::kLowestFirst)
      : bytes_(bytes), order_(order) {}

  std::uint64_t Size() const { return bytes_.size(); }
  std::string_view View() const { return bytes_; }

  // Of up to 8 bytes.
  std::uint64_t Number(std::uint64_t at, unsigned size) const;
  std::uint32_t Word(std::uint64_t at) const { return static_cast<std::uint32_t>(Number(at, 4)); }
  // Without the 0 that ends it.
  std::string_view Text(std::uint64_t at) const;
  // In the same order.
  CodeBytes Part(std::uint64_t at, std::uint64_t size) const;

 private:
  std::string_view bytes_;
  ByteOrder order_;
};

// Reads on from where it is.
class CodeCursor {
 public:
  explicit CodeCursor(const CodeBytes& bytes, std::uint64_t at = 0) : bytes_(bytes), at_(at) {}

  bool IsAtEnd() const { return at_ >= bytes_.Size(); }
  std::uint64_t At() const { return at_; }
  std::uint8_t Byte() { return static_cast<std::uint8_t>(bytes_.Number(at_++, 1)); }
  // Seven bits in each byte, the lowest first; the eighth says that more follow.
  std::uint64_t Leb();
  std::string_view Text();

 private:
  const CodeBytes bytes_;
  std::uint64_t at_;
};

}  // namespace brvhost
