#include "host/calls/hostfunctions.h"

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <map>
#include <type_traits>
#include <utility>

#include "BrvEDK/Source/brevixpdk.h"
#include "BrvEDK/Source/hostcallmacros.h"
#include "BrvEDK/Source/integerclasses.h"
#include "BrvEDK/Source/widening.h"
#include "host/calls/wrapper.h"

namespace brvhost {
namespace {

template <class T>
constexpr ValueKind KindOf() {
  if constexpr (std::is_void_v<T>) return ValueKind::kNothing;
  if constexpr (std::is_same_v<T, classes::short16>) return ValueKind::kShort16;
  if constexpr (std::is_same_v<T, classes::ushort16>) return ValueKind::kUShort16;
  if constexpr (std::is_same_v<T, classes::flag8>) return ValueKind::kFlag8;
  if constexpr (std::is_same_v<T, classes::int32>) return ValueKind::kInt32;
  if constexpr (std::is_same_v<T, uint32>) return ValueKind::kUInt32;
  if constexpr (std::is_same_v<T, HostResult>) return ValueKind::kHostResult;
  if constexpr (std::is_same_v<T, EXTGF2005a*>) return ValueKind::kFrame;
  if constexpr (std::is_same_v<T, EREGION*>) return ValueKind::kRegion;
  if constexpr (std::is_same_v<T, EDataKey*>) return ValueKind::kRecordKey;
  if constexpr (std::is_same_v<T, std::int32_t*>) return ValueKind::kSize;
  return ValueKind::kPointer;
}

// A line of the table.
struct Row {
  const char* title = nullptr;  // of the group that begins; all else is empty then
  const char* name = nullptr;
  const char* parameters = "";  // as they stand in the table
  std::vector<ValueKind> kinds = {};
  ValueKind result = ValueKind::kNothing;
  int defaultResult = 0;
  void* wrapper = nullptr;
};

template <class Signature, std::size_t... index>
std::vector<ValueKind> KindsOf(std::index_sequence<index...>) {
  return {KindOf<HostArgument<Signature, index>>()...};
}

// Classes is the prototype in integer classes; its last argument is the version.
template <class Classes>
Row RowOf(const char* name, int defaultResult, const char* parameters, void* wrapper) {
  constexpr std::size_t kArguments = std::tuple_size_v<typename HostSignature<Classes>::ArgumentTypes>;
  return {nullptr,
          name,
          parameters,
          KindsOf<Classes>(std::make_index_sequence<kArguments - 1>()),
          KindOf<HostReturn<Classes>>(),
          defaultResult,
          wrapper};
}

#define HOST_GROUP(title) {title},
#define HOST_CALL(name, defaultResult, ...)                          \
  RowOf<decltype(classes::name)>(#name, defaultResult, #__VA_ARGS__, \
                                 WrapperOf<HostFunctionIndex::name, decltype(name)>()),
#define HOST_CALL_AFTER(work, ...) HOST_CALL(__VA_ARGS__)
#define HOST_CALL_IF(condition, otherwise, ...) HOST_CALL(__VA_ARGS__)
#define HOST_CALL_OF_ITS_OWN(name, ...) HOST_CALL(name, 0, __VA_ARGS__)

std::vector<Row> TableRows() {
  return {
#include "BrvEDK/Source/hostcalltable.inc"
  };
}

// The names between commas, each with its kind.
std::vector<HostParameter> ParametersOf(const Row& row) {
  std::vector<HostParameter> parameters;
  std::string_view rest(row.parameters);
  for (const ValueKind kind : row.kinds) {
    const std::size_t end = std::min(rest.find(','), rest.size());
    parameters.push_back({std::string(rest.substr(0, end)), kind});
    rest.remove_prefix(std::min(rest.size(), rest.find_first_not_of(" ,", end)));
  }
  return parameters;
}

std::vector<HostFunction> ReadTable() {
  std::vector<HostFunction> functions;
  const char* group = "";
  for (const Row& row : TableRows()) {
    if (row.title != nullptr) group = row.title;
    if (row.title != nullptr) continue;
    functions.push_back({row.name, group, ParametersOf(row), row.result, row.defaultResult,
                         dlsym(RTLD_DEFAULT, row.name), row.wrapper});
  }
  return functions;
}

}  // namespace

std::int64_t NumberIn(Register value, ValueKind kind) {
  const auto low = static_cast<int>(value);
  switch (kind) {
    case ValueKind::kShort16:
      return SignExtend16(low);
    case ValueKind::kUShort16:
      return ZeroExtend16(low);
    case ValueKind::kFlag8:
      return ZeroExtend8(low);
    case ValueKind::kInt32:
      return low;
    case ValueKind::kUInt32:
      return static_cast<std::uint32_t>(value);
    default:
      return static_cast<std::int64_t>(value);
  }
}

const std::vector<HostFunction>& HostFunctions() {
  static const std::vector<HostFunction> functions = ReadTable();
  return functions;
}

std::optional<std::size_t> IndexOfHostFunction(std::string_view name) {
  static const auto indexes = [] {
    std::map<std::string_view, std::size_t> known;
    for (const HostFunction& function : HostFunctions()) known.emplace(function.name, known.size());
    return known;
  }();
  const auto found = indexes.find(name);
  return found == indexes.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace brvhost
