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
  // The disk starts while the rest is made, which leaves less to wait for at the end.
  void StartWriting() const;

  int descriptor_;
  std::vector<char> buffer_;
};

}  // namespace brvhost
