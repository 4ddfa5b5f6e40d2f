// The facts about what an extension's items do where host calls fail. Each takes the path of the bundle, and returns
// what is wrong, or nothing.
#pragma once

#include <string>

namespace brvhost {

// Each call of a run fails in turn: that one alone, or all after it, too. An extension that is not in order where no
// call fails is not held to it.
std::string EndsInOrderWhereACallFails(const std::string& path);
std::string EndsInOrderWhereAllCallsFailFromOneOn(const std::string& path);

}  // namespace brvhost
