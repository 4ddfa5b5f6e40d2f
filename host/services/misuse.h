// What an extension does that the interface does not allow, and the host survives.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace brvhost {

class Misuse {
 public:
  // `what` is a clause about the extension, "it frees a frame that is not loaded" without "it", and lives for ever.
  void Note(const char* what);

  // Each once, in the order in which they first came up, with how often: "frees a frame that is not loaded (3 times)".
  std::vector<std::string> Texts() const;

 private:
  std::vector<std::pair<const char*, std::uint64_t>> noted_;
};

}  // namespace brvhost
