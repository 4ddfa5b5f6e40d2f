#include "host/code/macimport.h"

#include <cstddef>
#include <string>

#include "host/code/codebytes.h"
#include "host/code/macname.h"

namespace brvhost {

void AddImportOfMac(std::string_view name, std::int64_t origin, bool mayBeMissing, CodeImage& image) {
  constexpr std::int64_t kItself = 0;
  constexpr std::int64_t kProgram = -1;
  constexpr std::int64_t kAnything = -2;
  constexpr std::int64_t kFirstWithDefinition = -3;
  if (origin == kItself || origin == kFirstWithDefinition) return;
  if (origin < kFirstWithDefinition) throw CodeError("has an import of an unknown origin");
  CodeImport entry{std::string(NameOfMac(name)), CodeImport::kLibrary, 0, mayBeMissing};
  if (origin > 0) entry.library = static_cast<std::size_t>(origin - 1);
  if (origin == kProgram) entry.from = CodeImport::kProgram;
  if (origin == kAnything) entry.from = CodeImport::kAnything;
  image.AddImport(entry);
}

}  // namespace brvhost
