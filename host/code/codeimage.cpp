#include "host/code/codeimage.h"

#include <tuple>
#include <utility>

#include "host/code/codebytes.h"
#include "host/code/elfimage.h"
#include "host/code/machimage.h"
#include "host/code/universalfile.h"

namespace brvhost {

bool CodeImport::operator<(const CodeImport& other) const {
  return std::tie(name, from, library, mayBeMissing) <
         std::tie(other.name, other.from, other.library, other.mayBeMissing);
}

void CodeImage::AddExport(std::string_view name) {
  Count(name.size());
  exports_.emplace(name);
}

void CodeImage::AddImport(CodeImport entry) {
  Count(entry.name.size());
  imports_.insert(std::move(entry));
}

void CodeImage::AddLibrary(CodeLibrary library) {
  Count(library.path.size());
  libraries_.push_back(std::move(library));
}

void CodeImage::AddSearchFolder(std::string_view folder) {
  Count(folder.size());
  searchFolders_.emplace_back(folder);
}

void CodeImage::Count(std::size_t characters) {
  constexpr std::size_t kMost = 64 << 20;
  characters_ += characters + sizeof(CodeImport);
  if (characters_ > kMost) throw CodeError("has more names than any code");
}

std::vector<CodeImage> ImagesIn(std::string_view bytes) {
  if (IsElf(bytes)) return {ElfImage(bytes)};
  if (IsMach(bytes)) return {MachImage(bytes)};
  if (!IsUniversal(bytes)) throw CodeError("is no code");
  std::vector<CodeImage> images;
  for (const UniversalPart& part : PartsOf(bytes)) {
    if (part.processor == CodeProcessor::kOther) continue;
    images.push_back(MachImage(CodeBytes(bytes).Part(part.at, part.size).View()));
  }
  return images;
}

}  // namespace brvhost
