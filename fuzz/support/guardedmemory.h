// Memory that ends where a page that cannot be touched starts, for code that sanitizers do not check.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <new>

class GuardedMemory {
 public:
  // At least that many bytes.
  explicit GuardedMemory(std::size_t size) : size_((size + page_ - 1) / page_ * page_) {
    void* const pages = mmap(nullptr, size_ + 2 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) throw std::bad_alloc();
    begin_ = static_cast<std::uint8_t*>(pages) + page_;
    if (mprotect(begin_, size_, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
  }
  ~GuardedMemory() { munmap(begin_ - page_, size_ + 2 * page_); }
  GuardedMemory(const GuardedMemory&) = delete;
  GuardedMemory& operator=(const GuardedMemory&) = delete;

  std::uint8_t* Begin() const { return begin_; }
  std::uint8_t* End() const { return begin_ + size_; }

 private:
  const std::size_t page_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const std::size_t size_;
  std::uint8_t* begin_;
};
