// A folder of a test's own, and the files in it.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace brvhost {

class TemporaryFolder : public testing::Test {
 protected:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "files-test-XXXXXX").string();
    folder = mkdtemp(pattern.data());
  }
  ~TemporaryFolder() override { std::filesystem::remove_all(folder); }

  std::filesystem::path Write(const std::string& name, const std::string& content) const {
    std::ofstream(folder / name) << content;
    return folder / name;
  }
  static std::string ContentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }
  std::size_t FileCount() const {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
  }

  std::filesystem::path folder;
};

}  // namespace brvhost
