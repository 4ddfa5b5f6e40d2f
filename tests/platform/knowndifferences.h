// Rows of a table that are known to answer otherwise here. The lists can only shrink.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "vectors.h"

// The rows that stay unmatched, each with its reason beside it: the number of a line, then text.
inline std::set<int> KnownDifferences(const char* table) {
  std::ifstream file(std::filesystem::path(BRV_SOURCE_DIR) / "tests/platform/known-differences" / table);
  std::set<int> lines;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line[0] != '#') lines.insert(std::stoi(line));
  }
  return lines;
}

// Compares a row, and sees to it that the list of known differences can only shrink.
inline void ExpectRow(const std::set<int>& known, const VectorRow& row, const std::string& got,
                      const std::string& expected) {
  if (known.contains(row.line)) {
    EXPECT_NE(got, expected) << "line " << row.line << " matches now: take it off the list of known differences";
    return;
  }
  EXPECT_EQ(got, expected) << "line " << row.line << ", " << row.columns[0];
}
