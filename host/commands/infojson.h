// What `info` reports, in JSON.
#pragma once

#include <string>

#include "host/files/scorefile.h"

namespace brvhost {

std::string JsonOf(const ScoreFile& file);

// Of a score that could not be read: `status` is one word; `retry`: whether a repetition may help.
std::string JsonOfUnread(const std::string& path, const char* status, bool retry, const std::string& error);

}  // namespace brvhost
