// Memory for a whole file.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

namespace brvhost {

// Bytes with no particular content until they are written to.
class Bytes {
 public:
  Bytes() = default;
  Bytes(Bytes&& other) noexcept : memory_(std::move(other.memory_)), size_(std::exchange(other.size_, 0)) {}
  Bytes& operator=(Bytes&& other) noexcept {
    memory_ = std::move(other.memory_);
    size_ = std::exchange(other.size_, 0);
    return *this;
  }
  // Throws std::bad_alloc.
  explicit Bytes(std::size_t size);

  char* Data() { return memory_.get(); }
  const char* Data() const { return memory_.get(); }
  std::size_t Size() const { return size_; }
  bool IsEmpty() const { return size_ == 0; }
  std::string_view View() const { return {memory_.get(), size_}; }

  // Keeps the first `size` of them, or fewer.
  void Truncate(std::size_t size) { size_ = size < size_ ? size : size_; }
  // Adds `count` bytes after those that are there.
  void Grow(std::size_t count);

 private:
  struct Free {
    void operator()(char* memory) const { std::free(memory); }
  };

  std::unique_ptr<char[], Free> memory_;
  std::size_t size_ = 0;
};

}  // namespace brvhost
