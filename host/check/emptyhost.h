// A host bundle that has no function at all, found by extensions instead of this program.
#pragma once

#include <string>

namespace brvhost {

// The bundle's files stand as long as this object does.
class EmptyHost {
 public:
  // Throws std::runtime_error where there is no room for temporary files.
  EmptyHost();
  ~EmptyHost();
  EmptyHost(const EmptyHost&) = delete;
  EmptyHost& operator=(const EmptyHost&) = delete;

  // From now on, and for the life of this process, extensions find it.
  void Open() const;

 private:
  std::string folder_;
};

}  // namespace brvhost
