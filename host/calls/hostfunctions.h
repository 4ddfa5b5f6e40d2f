// Every function that an extension can ask its host for, as the kit's call table and its prototypes have it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brvhost {

// An argument or a result as it is passed: 32 bits of an integer, 64 of a pointer.
using Register = std::uint64_t;

// How the bits of an argument or a result are read.
enum class ValueKind {
  kNothing,
  kShort16,
  kUShort16,
  kFlag8,
  kInt32,
  kUInt32,
  kHostResult,  // all 64 bits
  kFrame,
  kRegion,
  kRecordKey,
  kSize,  // the address of a number of bytes
  kPointer,
};

// The number in a register, as its kind has it: cut and extended, whatever is in the upper bits.
std::int64_t NumberIn(Register value, ValueKind kind);

struct HostParameter {
  std::string name;
  ValueKind kind;
};

struct HostFunction {
  const char* name;
  const char* group;                      // what it is about
  std::vector<HostParameter> parameters;  // all but the last, which is the version of the interface
  ValueKind result;
  int defaultResult;  // what the kit returns where a host lacks the function
  void* own;          // the function of this program, or null where it has none
  void* wrapper;      // what tells the interceptors of each call (interception.h)
};

// In the order of the table.
const std::vector<HostFunction>& HostFunctions();

// The index of the function of that name, or nothing.
std::optional<std::size_t> IndexOfHostFunction(std::string_view name);

}  // namespace brvhost
