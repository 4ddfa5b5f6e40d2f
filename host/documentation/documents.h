// All that is installed to read about the program, and to complete its command line with.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace brvhost {

struct Document {
  std::string path;  // from the folder that shares data between systems, as in man/man1/brvhost.1
  std::string content;
};

// The date is that of the release, as in 2026-11-22.
std::vector<Document> DocumentsOf(const CLI::App& app, const std::string& date);

}  // namespace brvhost
