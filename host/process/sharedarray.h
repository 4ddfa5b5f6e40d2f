// Memory that several processes share.
#pragma once

#include <sys/mman.h>

#include <cstddef>
#include <new>
#include <type_traits>

namespace brvhost {

// Some records, at first all zeros, that this process and all that it starts later share.
template <class Record>
class SharedArray {
 public:
  // Throws std::bad_alloc.
  explicit SharedArray(std::size_t count) : size_(count * sizeof(Record)) {
    static_assert(std::is_trivially_copyable_v<Record>);
    void* const memory = mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    records_ = static_cast<Record*>(memory);
  }
  ~SharedArray() { munmap(records_, size_); }
  SharedArray(const SharedArray&) = delete;
  SharedArray& operator=(const SharedArray&) = delete;

  Record& operator[](std::size_t index) const { return records_[index]; }

 private:
  Record* records_;
  std::size_t size_;  // in bytes
};

}  // namespace brvhost
