// Whole files in memory.
#pragma once

#include <string>

#include "host/files/bytes.h"

namespace brvhost {

// Throws InputError with the system's reason.
Bytes ReadFile(const std::string& path);

}  // namespace brvhost
