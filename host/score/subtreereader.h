// A reader of one element of a score and all that it contains.
#pragma once

#include <string_view>

#include "host/xml/xmlreader.h"

namespace brvhost {

class SubtreeReader {
 public:
  virtual ~SubtreeReader() = default;
  // The elements within it, in order; `text` is the text in the element that ends.
  virtual void StartElement(const char* name, const XmlAttributes& attributes) = 0;
  virtual void EndElement(std::string_view text) = 0;
};

}  // namespace brvhost
