// A strict reader of XML that says where in the bytes each element starts.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/score/inputerror.h"

namespace brvhost {

// The attributes that stand in a start tag, without those that a document type adds.
class XmlAttributes {
 public:
  XmlAttributes(const char** namesAndValues, int count) : namesAndValues_(namesAndValues), count_(count) {}

  // The value with its references resolved, in UTF-8, or null.
  const char* Find(std::string_view name) const {
    for (int i = 0; i < count_; i += 2) {
      if (name == namesAndValues_[i]) return namesAndValues_[i + 1];
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
  // The offset of the byte at which the tag or text starts that is being reported.
  virtual std::uint64_t Offset() const = 0;
  // From now on, until told otherwise, text is reported or passed over.
  virtual void WantText(bool wanted) = 0;

 protected:
  ~XmlPosition() = default;
};

// What a document is told to. Whatever these throw ends the reading and comes out of ReadXml; an InputError without a
// place gets that of the tag.
class XmlHandler {
 public:
  virtual ~XmlHandler() = default;
  // Called once, before the others. `position` is good until ReadXml returns.
  virtual void Begin(XmlPosition& position) = 0;
  virtual void StartElement(const char* name, const XmlAttributes& attributes) = 0;
  virtual void EndElement() = 0;
  // A piece of text, in UTF-8. One text may come in several pieces.
  virtual void Text(std::string_view piece) = 0;
};

// Reads a whole document in any encoding that its declaration may name. Throws InputError, with the place, where it is
// not well formed.
void ReadXml(std::string_view document, XmlHandler& handler);

}  // namespace brvhost
