#include <fmt/format.h>

#include <cstdio>
#include <string>

#include "host/calls/hostfunctions.h"
#include "host/commands/commands.h"
#include "host/process/exitstatus.h"
#include "host/process/streams.h"
#include "host/text/json.h"

namespace brvhost {
namespace {

bool HasResult(const HostFunction& function) { return function.result != ValueKind::kNothing; }

std::string LineOf(const HostFunction& function) {
  const std::string answer = function.own != nullptr ? "served"
                             : HasResult(function)   ? fmt::format("default {}", function.defaultResult)
                                                     : "does nothing";
  return fmt::format("{}\t{}\t{}", function.name, answer, function.group);
}

std::string JsonOfFunction(const HostFunction& function) {
  const auto nameOf = [](const HostParameter& parameter) { return JsonOf(parameter.name); };
  return JsonObject()
      .AddText("name", function.name)
      .AddText("group", function.group)
      .AddFlag("served", function.own != nullptr)
      .AddJson("default", HasResult(function) ? std::to_string(function.defaultResult) : "null")
      .AddJson("arguments", JsonArrayOf(function.parameters, nameOf))
      .Text();
}

}  // namespace

int ListCalls(const Options& options) {
  for (const HostFunction& function : HostFunctions()) {
    Print(stdout, "{}\n", options.json ? JsonOfFunction(function) : LineOf(function));
  }
  return kDone;
}

}  // namespace brvhost
