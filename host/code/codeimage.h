// What code for one processor exports and imports, as its file has it. No code is run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/code/codeprocessor.h"

namespace brvhost {

struct CodeLibrary {
  std::string path;  // as the file names it
  bool mayBeMissing = false;
};

struct CodeImport {
  enum From {
    kLibrary,   // from one of the libraries
    kProgram,   // from the program that loads the code
    kAnything,  // from whatever is loaded
  };

  std::string name;
  From from = kLibrary;
  std::size_t library = 0;  // its index
  bool mayBeMissing = false;

  bool operator<(const CodeImport& other) const;
};

// Names are those of the source, without the underscore that macOS puts before each.
class CodeImage {
 public:
  explicit CodeImage(CodeProcessor processor) : processor_(processor) {}

  CodeProcessor Processor() const { return processor_; }
  const std::set<std::string>& Exports() const { return exports_; }
  // Of code for macOS.
  const std::set<CodeImport>& Imports() const { return imports_; }
  const std::vector<CodeLibrary>& Libraries() const { return libraries_; }
  // Where it looks for libraries whose paths begin with @rpath.
  const std::vector<std::string>& SearchFolders() const { return searchFolders_; }

  // These throw CodeError when there is more than code has.
  void AddExport(std::string_view name);
  void AddImport(CodeImport entry);
  void AddLibrary(CodeLibrary library);
  void AddSearchFolder(std::string_view folder);

 private:
  // A small file can say the same long name very often.
  void Count(std::size_t characters);

  CodeProcessor processor_;
  std::set<std::string> exports_;
  std::set<CodeImport> imports_;
  std::vector<CodeLibrary> libraries_;
  std::vector<std::string> searchFolders_;
  std::size_t characters_ = 0;
};

// The code in a file, for one processor after the other; of a universal file, that for the processors of Macs of today.
// Throws CodeError, also where there is none.
std::vector<CodeImage> ImagesIn(std::string_view bytes);

}  // namespace brvhost
