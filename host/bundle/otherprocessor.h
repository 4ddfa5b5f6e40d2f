// Code that is for another processor than this process.
#pragma once

#include <string>

namespace brvhost {

// Whether the file is an executable or a library for another processor. The dynamic loader reports such a library as
// one that is not there.
bool IsForAnotherProcessor(const std::string& path);

}  // namespace brvhost
