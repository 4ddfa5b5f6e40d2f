// The files of a new extension, as they are in examples/template.
#pragma once

#include <span>
#include <string_view>

namespace brvhost {

struct TemplateFile {
  std::string_view path;  // in the folder
  std::string_view content;
};

// @NAME@, @IDENTIFIER@ and @LOCALIZATIONS@ stand for what the author chooses. The texts in each language are in
// texts/<language>.strings.
std::span<const TemplateFile> TemplateFiles();

}  // namespace brvhost
