// Writes small pieces to a descriptor as large ones.
#pragma once

#include <string_view>
#include <vector>

namespace brvhost {

class BufferedWriter {
 public:
  // The descriptor outlives this object.
  explicit BufferedWriter(int descriptor);

  // These return false, with errno, when not all can be written.
  [[nodiscard]] bool Write(std::string_view bytes);
  [[nodiscard]] bool Flush();

 private:
  int descriptor_;
  std::vector<char> buffer_;
};

}  // namespace brvhost
