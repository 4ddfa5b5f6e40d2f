#include "calltable.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "brevixpdk.h"

namespace {

DocumentedCall ParseCall(const std::string& line) {
  std::istringstream columns(line);
  std::string arguments;
  std::string defaultResult;
  DocumentedCall call;
  std::getline(columns, call.name, '\t');
  std::getline(columns, arguments, '\t');
  std::getline(columns, call.result, '\t');
  if (!std::getline(columns, defaultResult, '\t'))
    throw std::runtime_error("calls.txt: a line needs four columns with tabs between them: " + line);
  std::istringstream words(arguments);
  for (std::string word; words >> word;) call.arguments.push_back(word);
  call.defaultResult = std::stol(defaultResult);
  return call;
}

// The functions by name; what a program can link against is there under its name.
#define HOST_CALL(name, ...) {#name, reinterpret_cast<void*>(&name)},
#define HOST_CALL_AFTER(work, name, ...) HOST_CALL(name)
#define HOST_CALL_IF(condition, otherwise, name, ...) HOST_CALL(name)
#define HOST_CALL_OF_ITS_OWN(name, ...) HOST_CALL(name)
const std::vector<std::pair<std::string, void*>> kFunctions = {
#include "hostcalltable.inc"
};

constexpr std::size_t kMaxArguments = 20;

template <std::size_t... index>
std::uint64_t CallWith(void* function, const std::array<std::uint64_t, kMaxArguments>& r,
                       std::index_sequence<index...>) {
  using Function = std::uint64_t (*)(std::enable_if_t<(index < kMaxArguments), std::uint64_t>...);
  return reinterpret_cast<Function>(function)(r[index]...);
}

}  // namespace

const std::vector<DocumentedCall>& DocumentedCalls() {
  static const std::vector<DocumentedCall> calls = [] {
    std::ifstream file(BRV_SOURCE_DIR "/tests/BrvEDK/bridge/calls.txt");
    std::vector<DocumentedCall> read;
    for (std::string line; std::getline(file, line);) {
      if (!line.starts_with('#')) read.push_back(ParseCall(line));
    }
    return read;
  }();
  return calls;
}

std::vector<std::string> KitFunctionNames() {
  std::vector<std::string> names;
  for (const auto& [name, function] : kFunctions) names.push_back(name);
  return names;
}

void* KitFunction(const std::string& name) {
  for (const auto& [known, function] : kFunctions) {
    if (known == name) return function;
  }
  throw std::runtime_error("the kit has no " + name);
}

// Every call gets the same number of words; a function reads as many as it has arguments.
std::uint64_t CallWithRegisters(void* function, const std::vector<std::uint64_t>& registers) {
  std::array<std::uint64_t, kMaxArguments> all{};
  std::copy(registers.begin(), registers.end(), all.begin());
  return CallWith(function, all, std::make_index_sequence<kMaxArguments>());
}
