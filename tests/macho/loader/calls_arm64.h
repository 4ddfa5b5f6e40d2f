// How functions are called on macOS for arm64, where Linux differs: an argument for which no register is left has as
// many bytes of the stack as its type; variable arguments are all on the stack, in eight bytes each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <tuple>
#include <type_traits>

namespace macho {

inline constexpr std::size_t kRegisterCount = 8;

// A call by the image of a function of Linux.
class CallByImage {
 public:
  CallByImage(const std::uint64_t* registers, const char* stack) : registers_(registers), stack_(stack) {}

  // The first arguments, whole numbers and pointers of these types.
  template <class... T>
  std::tuple<T...> Arguments() {
    return std::tuple<T...>{Next<T>()...};  // in braces they are read from the first to the last
  }

 private:
  template <class T>
  T Next() {
    T value;
    if (used_ < kRegisterCount) {
      std::memcpy(&value, registers_ + used_++, sizeof(value));
      return value;
    }
    stack_ += -reinterpret_cast<std::uintptr_t>(stack_) % alignof(T);
    std::memcpy(&value, stack_, sizeof(value));
    stack_ += sizeof(value);
    return value;
  }

  const std::uint64_t* registers_;
  const char* stack_;
  std::size_t used_ = 0;
};

// Calls a function with these registers and a copy of these bytes, in whole slots of eight, on the stack.
extern "C" std::uint64_t CallWithStack(const void* function, const std::uint64_t* registers, const void* stack,
                                       std::size_t stackSize);

// A call of one of the image's functions.
class CallOfImage {
 public:
  template <class... Arguments>
  explicit CallOfImage(Arguments... arguments) {
    (Add(arguments), ...);
  }

  void AddVariable(const void* pointer) {
    used_ = kRegisterCount;
    Put(pointer);
  }

  std::uint64_t Call(const void* function) const {
    return CallWithStack(function, registers_, stack_, (stackSize_ + kSlotSize - 1) / kSlotSize * kSlotSize);
  }

 private:
  static constexpr std::size_t kSlotSize = 8;
  static constexpr std::size_t kMaxStackSize = 16 * kSlotSize;

  // The caller extends an argument that is narrower than 32 bits.
  template <class T>
  void Add(T value) {
    if constexpr (std::is_integral_v<T> && sizeof(T) < sizeof(int)) {
      Put(static_cast<int>(value));
    } else {
      Put(value);
    }
  }

  template <class T>
  void Put(T value) {
    static_assert(sizeof(T) <= kSlotSize);
    if (used_ < kRegisterCount) {
      std::memcpy(registers_ + used_++, &value, sizeof(value));
      return;
    }
    stackSize_ += -stackSize_ % sizeof(value);
    if (stackSize_ + sizeof(value) > kMaxStackSize) __builtin_trap();
    std::memcpy(stack_ + stackSize_, &value, sizeof(value));
    stackSize_ += sizeof(value);
  }

  std::uint64_t registers_[kRegisterCount] = {};
  alignas(kSlotSize) char stack_[kMaxStackSize] = {};
  std::size_t used_ = 0;
  std::size_t stackSize_ = 0;
};

}  // namespace macho
