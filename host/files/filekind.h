// What a file or a folder is, by its name and its first bytes.
#pragma once

#include <string>

namespace brvhost {

enum class FileKind {
  kNothing,  // there is none
  kScore,    // MusicXML, plain or compressed
  kBundle,   // a folder that is laid out as a bundle
  kFolder,   // another folder
  kOther,    // another file, or one that cannot be read
};

FileKind KindOf(const std::string& path);

bool IsNamedMxl(const std::string& path);
// Whether the name is one that scores have: .musicxml, .xml or .mxl, in capital letters, too.
bool IsNamedAsScore(const std::string& path);

// Whether the file is an XML document that is no score: its root element is another one.
bool IsOtherDocument(const std::string& path);

}  // namespace brvhost
