#include "host/code/codefile.h"

#include <array>
#include <cstddef>
#include <fstream>
#include <string_view>

#include "host/code/codebytes.h"
#include "host/code/elfimage.h"
#include "host/code/machimage.h"
#include "host/code/universalfile.h"

namespace brvhost {
namespace {

CodeFile Universal(std::string_view bytes) {
  CodeFile file{true, {}};
  for (const UniversalPart& part : PartsOf(bytes)) file.processors.insert(part.processor);
  return file;
}

std::optional<CodeFile> CodeByHead(std::string_view bytes) {
  if (IsElf(bytes)) return CodeFile{false, {ProcessorOfElf(bytes)}};
  if (IsMach(bytes)) return CodeFile{true, {ProcessorOfMach(bytes)}};
  if (IsUniversal(bytes)) return Universal(bytes);
  return std::nullopt;
}

}  // namespace

std::optional<CodeFile> CodeIn(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  std::array<char, 1024> head = {};
  stream.read(head.data(), head.size());
  try {
    return CodeByHead({head.data(), static_cast<std::size_t>(stream.gcount())});
  } catch (const CodeError&) {
    return std::nullopt;
  }
}

}  // namespace brvhost
