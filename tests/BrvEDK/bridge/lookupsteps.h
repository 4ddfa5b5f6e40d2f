// The platform's calls that a lookup of a host function makes. A program that compiles lookupsteps.cpp has these
// instead of the platform's own, which they call.
#pragma once

#include <functional>
#include <string>

// Called before each step, in the thread of the lookup; unset, nothing is done.
struct LookupSteps {
  std::function<void(const std::string& name)> makeName;
  bool namesCannotBeMade = false;  // for want of memory
  std::function<void()> askWhetherLoaded;
  std::function<void(const std::string& name)> findFunction;
};

extern LookupSteps lookupSteps;
