// The files of code in a bundle.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/code/codefile.h"
#include "host/code/codeimage.h"

namespace brvhost {

inline constexpr std::string_view kMacFolder = "MacOS";

struct PlacedCode {
  std::string folder;
  std::string name;
  CodeFile code;
};

// All in the bundle's folders for executables.
std::vector<PlacedCode> CodeOf(const std::string& bundle);

// Whether hosts load it as the bundle's executable: its name is the one in Info.plist, with .so on Linux. Not where it
// is in a folder for another kind of system.
bool IsExecutableOf(const std::string& bundle, const PlacedCode& placed);

// "Linux-arm64/Name.so".
std::string ShownPath(const PlacedCode& placed);

// The name of a processor on a Mac.
std::string_view NameOnMac(CodeProcessor processor);

std::string PathOf(const std::string& bundle, const PlacedCode& placed);

// What is in the file, for each processor. Throws CodeError.
std::vector<CodeImage> ImagesOf(const std::string& bundle, const PlacedCode& placed);
// None where it cannot be read, which is the matter of one fact alone.
std::vector<CodeImage> ReadableImagesOf(const std::string& bundle, const PlacedCode& placed);

// How messages name an image: the file, and of a universal one, the processor.
std::string Shown(const PlacedCode& placed, const CodeImage& image);

}  // namespace brvhost
