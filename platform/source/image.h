// A loaded executable, and the functions in it.
#pragma once

#include <string>

namespace brvplatform {

class Image {
 public:
  Image() = default;
  // The main program itself.
  static Image MainProgram();
  // The shared object of that path, loaded with its symbols kept local; not open if it cannot be loaded.
  static Image Load(const std::string& path);

  bool IsOpen() const { return handle_ != nullptr; }

  // A function of the image itself, never of another image that it is linked with. An extension and its host have
  // functions of the same names, and an extension that asked for the host's would find its own and call it for ever.
  void* Function(const char* name) const;

 private:
  explicit Image(void* handle) : handle_(handle) {}

  // Executables stay loaded for the life of the process, as on macOS, so that a function pointer never outlives its
  // code.
  void* handle_ = nullptr;
};

}  // namespace brvplatform
