// Changes one attribute of a start tag in the bytes of a document, and leaves every other byte as it is.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/xml/codeunits.h"

namespace brvhost {

// A change of the bytes: from `offset` on, `removed` bytes are replaced by `inserted`.
struct ByteEdit {
  std::uint64_t offset = 0;
  std::uint64_t removed = 0;
  std::string inserted;
};

class StartTag {
 public:
  // The start tag whose "<" is at `offset`, in a well-formed document; `units` and `offset` are as its reader reported
  // them. Null when there is none: an element that comes from an entity has its tag elsewhere.
  static std::optional<StartTag> At(std::string_view document, CodeUnits units, std::uint64_t offset);

  // Adds an attribute that the tag does not have, immediately after its name. `value` is ASCII and needs no escape.
  ByteEdit Add(std::string_view attribute, std::string_view value) const;

  // Gives an attribute that the tag has another value, or removes it with the blanks before it, so that Remove undoes
  // Add. An empty edit where there is no such attribute.
  ByteEdit Change(std::string_view attribute, std::string_view value) const;
  ByteEdit Remove(std::string_view attribute) const;

 private:
  // In code units from the start of the document.
  struct Attribute {
    std::uint64_t blanks;  // where the blanks before its name start
    std::uint64_t value;   // after the opening quote
    std::uint64_t quote;   // the closing quote
  };

  StartTag(std::string_view document, CodeUnits units, std::uint64_t offset);

  std::optional<Attribute> Find(std::string_view name) const;
  std::uint64_t AfterName() const;
  std::uint64_t SkipBlanks(std::uint64_t index) const;
  bool NameIs(std::uint64_t from, std::uint64_t to, std::string_view name) const;
  // A character of ASCII, or 0x80 for any other; 0 after the end.
  unsigned char UnitAt(std::uint64_t index) const;
  std::string Encoded(std::string_view ascii) const;
  ByteEdit Edit(std::uint64_t from, std::uint64_t to, std::string_view ascii) const;

  std::string_view document_;
  CodeUnits units_;
  std::uint64_t width_;  // bytes of a code unit
  std::uint64_t start_;  // of "<"; offsets of tags in UTF-16 are even
};

}  // namespace brvhost
