// What the calling convention asks of every extension.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace brvhost {

struct Fact {
  std::string name;  // what holds, as a clause about the extension
  // Empty when it holds, else what went wrong. May crash or not return: the extension's code runs in it.
  std::function<std::string()> check;
  bool othersNeedIt = false;  // the facts after it cannot hold without it
};

// The facts about the bundle at `path`, in the order in which a host comes to rely on them.
std::vector<Fact> FactsAbout(const std::string& path);

}  // namespace brvhost
