// The texts of a document: text blocks and their raw texts.
#pragma once

#include <string>

#include "host/services/edatastore.h"

namespace brvhost {

// Numbers texts from 1, the same for the text block and its raw text.
class TextRecords {
 public:
  explicit TextRecords(EDataStore& records) : records_(records) {}

  // Stores a text, in UTF-8, with a tag for its font. Returns its number, or 0 where there is no text.
  int Store(const std::string& text, const std::string& font = {});

 private:
  EDataStore& records_;
  int last_ = 0;
};

}  // namespace brvhost
