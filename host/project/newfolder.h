// A folder that is there with all its files or not at all.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brvhost {

//   NewFolder folder("Mine");
//   folder.Add("tests/score.musicxml", content);
//   folder.Keep();
//
// A folder that is not kept is removed, with its files. All functions throw OutputError.
class NewFolder {
 public:
  // Whatever has the name already stays as it is, and is an error.
  explicit NewFolder(const std::string& name);
  ~NewFolder();
  NewFolder(const NewFolder&) = delete;
  NewFolder& operator=(const NewFolder&) = delete;

  // A file, with the folders that it is in; the path is relative.
  void Add(std::string_view path, std::string_view content);
  void Keep() { made_.clear(); }

 private:
  void MakeFolder(const std::string& path);

  std::string name_;
  std::vector<std::string> made_;  // in that order; there is room for the next before it is made
};

}  // namespace brvhost
