#include "host/project/newfolder.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "host/files/outputerror.h"
#include "host/files/safefile.h"
#include "host/files/target.h"

namespace brvhost {

NewFolder::NewFolder(const std::string& name) : name_(name) { MakeFolder(name_); }

NewFolder::~NewFolder() {
  for (std::size_t i = made_.size(); i > 0; --i) std::remove(made_[i - 1].c_str());
}

void NewFolder::Add(std::string_view path, std::string_view content) {
  for (std::size_t slash = path.find('/'); slash != std::string_view::npos; slash = path.find('/', slash + 1)) {
    const std::string folder = name_ + "/" + std::string(path.substr(0, slash));
    if (std::ranges::find(made_, folder) == made_.end()) MakeFolder(folder);
  }
  const Target target(name_ + "/" + std::string(path));
  SafeFile file(target);
  file.Write(content);
  made_.reserve(made_.size() + 1);
  std::string made = target.Path();
  (void)file.Commit();  // no file was there that could lose anything
  made_.push_back(std::move(made));
}

void NewFolder::MakeFolder(const std::string& path) {
  std::string made = path;
  made_.reserve(made_.size() + 1);
  if (mkdir(path.c_str(), 0777) == 0) {
    made_.push_back(std::move(made));
    return;
  }
  if (errno == EEXIST) throw OutputError(path + ": is there already, and stays as it is");
  throw OutputError(path + ": cannot make the folder: " + std::strerror(errno));
}

}  // namespace brvhost
