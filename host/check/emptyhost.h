// A host bundle that has no function at all, which extensions find instead of this program.
#pragma once

#include <string>

namespace brvhost {

// The bundle's files exist as long as this object.
class EmptyHost {
 public:
  // Throws std::runtime_error where there is no place for temporary files, and std::bad_alloc.
  EmptyHost();
  ~EmptyHost();
  EmptyHost(const EmptyHost&) = delete;
  EmptyHost& operator=(const EmptyHost&) = delete;

  // From now on, for the rest of this process's life, extensions find it.
  void Open() const;

 private:
  // Needs no memory.
  void Remove() const;

  // From the outermost on.
  std::string folder_;
  std::string bundle_;
  std::string contents_;
  std::string info_;
};

}  // namespace brvhost
