// The platform's calls that a lookup of a host function goes through. A program that compiles lookupsteps.cpp has them
// in the place of the platform's own, to which they lead.
#pragma once

#include <functional>
#include <string>

// Called before each step, in the thread of the lookup; unset, nothing is done.
struct LookupSteps {
  std::function<void(const std::string& name)> makeName;
  std::function<void()> askWhetherLoaded;
  std::function<void(const std::string& name)> findFunction;
};

extern LookupSteps lookupSteps;
