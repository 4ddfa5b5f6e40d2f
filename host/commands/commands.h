// The commands. Each returns the exit status, and throws what main explains to the user.
#pragma once

#include <CLI/CLI.hpp>

#include "host/commands/options.h"

namespace brvhost {

[[nodiscard]] int ListBundles(const Options& options);
[[nodiscard]] int ListItems(const Options& options);
[[nodiscard]] int ShowInfo(const Options& options);
[[nodiscard]] int Run(const Options& options);
[[nodiscard]] int ListCalls(const Options& options);
[[nodiscard]] int Check(const Options& options);
[[nodiscard]] int Fuzz(const Options& options);
[[nodiscard]] int MakeExtension(const Options& options);
[[nodiscard]] int ShowHelp(const CLI::App& app, const Options& options);

}  // namespace brvhost
