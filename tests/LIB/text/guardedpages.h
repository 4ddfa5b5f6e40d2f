// Two pages that can be read and written, between two that cannot.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <string>

#include "bxstring.h"

class GuardedPages {
 public:
  GuardedPages() {
    void* pages = mmap(nullptr, 4 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) throw std::bad_alloc();
    pages_ = static_cast<char*>(pages);
    mprotect(Begin(), 2 * page_, PROT_READ | PROT_WRITE);
  }
  ~GuardedPages() { munmap(pages_, 4 * page_); }
  GuardedPages(const GuardedPages&) = delete;
  GuardedPages& operator=(const GuardedPages&) = delete;

  char* Begin() const { return pages_ + page_; }
  char* End() const { return Begin() + 2 * page_; }

  // Memory for count units. Their last byte is followed by gap bytes, and then by the page that cannot be read.
  UniChar* RoomAtEnd(std::size_t count, std::size_t gap) const {
    return reinterpret_cast<UniChar*>(End() - gap - count * sizeof(UniChar));
  }
  // The text, with count units of it, so placed; the final 0 is one of them where count is text.size() + 1.
  UniChar* PutAtEnd(const std::u16string& text, std::size_t count, std::size_t gap) const {
    UniChar* units = RoomAtEnd(count, gap);
    std::memset(Begin(), 0x55, static_cast<std::size_t>(End() - Begin()));
    std::memcpy(units, text.c_str(), count * sizeof(UniChar));
    return units;
  }
  UniChar* PutAtEnd(const std::u16string& text, std::size_t gap) const { return PutAtEnd(text, text.size() + 1, gap); }

  UniChar* PutAtBegin(const std::u16string& text, std::size_t gap) const {
    std::memset(Begin(), 0, static_cast<std::size_t>(End() - Begin()));
    std::memcpy(Begin() + gap, text.c_str(), (text.size() + 1) * sizeof(UniChar));
    return reinterpret_cast<UniChar*>(Begin() + gap);
  }

 private:
  const std::size_t page_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  char* pages_;
};
