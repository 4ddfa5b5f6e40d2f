// The facts about what an extension's items do. Each takes the path of the bundle, and returns what is wrong, or
// nothing.
#pragma once

#include <string>

#include "host/check/emptyhost.h"

namespace brvhost {

std::string RefusesWrongIndex(const std::string& path);
std::string RespectsDecline(const std::string& path);
std::string WorksInEmptyHost(const std::string& path, const EmptyHost& host);
std::string BalancesFrames(const std::string& path);
std::string AvoidsLeavingCalls(const std::string& path);
std::string BalancesEdits(const std::string& path);
std::string EndsWhenCancelled(const std::string& path);
std::string ChangesNothingTwice(const std::string& path);
std::string RepeatsItsResult(const std::string& path);
std::string Terminates(const std::string& path);

}  // namespace brvhost
