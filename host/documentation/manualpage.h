// The manual page.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace brvhost {

std::string ManualPage(const CLI::App& app);

}  // namespace brvhost
