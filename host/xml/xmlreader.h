// A strict reader of XML that reports at which byte each element starts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "host/text/inputerror.h"
#include "host/xml/codeunits.h"

namespace brvhost {

// Most names that are compared differ in their first character, and millions are compared.
inline bool SameName(const char* a, const char* b) { return *a == *b && std::strcmp(a, b) == 0; }

// The attributes in a start tag, without those that a document type adds.
class XmlAttributes {
 public:
  XmlAttributes(const char** namesAndValues, int count) : namesAndValues_(namesAndValues), count_(count) {}

  // The value with its references resolved, in UTF-8, or null.
  const char* Find(const char* name) const {
    for (int i = 0; i < count_; i += 2) {
      if (SameName(namesAndValues_[i], name)) return namesAndValues_[i + 1];
    }
    return nullptr;
  }

 private:
  const char** namesAndValues_;
  int count_;  // of names and values together
};

// Where the reader is in the document.
class XmlPosition {
 public:
  virtual TextPlace Place() const = 0;
  // The offset of the first byte of the tag or text that is being reported.
  virtual std::uint64_t Offset() const = 0;
  // How the reader takes the document's bytes; known from the first tag on.
  virtual CodeUnits Units() const = 0;
  // From now on, until the next call, text is reported or passed over.
  virtual void WantText(bool wanted) = 0;

 protected:
  ~XmlPosition() = default;
};

// What a document is reported to. Whatever these functions throw ends the reading and comes out of ReadXml; an
// InputError without a place gets that of the tag.
class XmlHandler {
 public:
  virtual ~XmlHandler() = default;
  // Called once, before the others. `position` is valid until ReadXml returns.
  virtual void Begin(XmlPosition& position) = 0;
  virtual void StartElement(const char* name, const XmlAttributes& attributes) = 0;
  virtual void EndElement() = 0;
  // A piece of text, in UTF-8. One text may come in several pieces.
  virtual void Text(std::string_view piece) = 0;
};

// The parser counts the lines and columns of every piece that it is given but the last, which takes a sixth of its
// time: there is one piece, unless it would be more than the parser takes.
inline constexpr std::size_t kMaxPieceSize = std::size_t{1} << 29;

// Reads a whole document in any encoding that its declaration may name. Throws InputError, with the place, where it is
// not well formed or its elements are nested too deep, and std::bad_alloc. `maxPieceSize`, 1 or more, is how many bytes
// the parser is given at a time; the result does not depend on it, but that a text may come in other pieces.
void ReadXml(std::string_view document, XmlHandler& handler, std::size_t maxPieceSize = kMaxPieceSize);

// A stretch of a document in UTF-8 that is well formed once tags are put around it.
struct XmlSection {
  std::string_view opening;
  std::string_view content;
  std::string_view closing;
  std::uint64_t offset = 0;  // of the content in the document
};

// Reads a section as a document. Offsets are the whole document's; places are within the section. Throws InputError
// where it is not well formed, and where it declares what would hold for the other sections too: an encoding other than
// UTF-8, entities, attributes. A section is one piece: one with more content than `maxPieceSize` is refused likewise.
void ReadXmlSection(const XmlSection& section, XmlHandler& handler, std::size_t maxPieceSize = kMaxPieceSize);

}  // namespace brvhost
