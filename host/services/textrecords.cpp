#include "host/services/textrecords.h"

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

#include "BrvEDK/Source/documentrecords.h"
#include "host/services/storerecord.h"

namespace brvhost {
namespace {

std::u16string Utf16(const std::string& utf8) {
  const icu::UnicodeString text = icu::UnicodeString::fromUTF8(utf8);
  return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

// A name as the interface has it: a flat sign is a tag, a font is a tag before the text. A caret in the text would
// open a tag that does not end, and is written as the modifier letter that looks like it.
std::u16string TaggedText(const std::string& name, const std::string& font) {
  std::u16string text;
  if (!font.empty()) {
    std::u16string plain = Utf16(font);
    std::erase_if(plain, [](char16_t unit) { return unit == u'(' || unit == u')' || unit == u'^'; });
    text = u"^font(" + plain + u")";
  }
  for (const char16_t unit : Utf16(name)) {
    if (unit == u'\u266D') {
      text += u"^flat()";
    } else {
      text += unit == u'^' ? u'\u02C6' : unit;
    }
  }
  return text;
}

}  // namespace

int TextRecords::Store(const std::string& text, const std::string& font) {
  if (text.empty() || last_ == UINT16_MAX) return 0;
  const std::u16string units = TaggedText(text, font);
  EDataStore::Bytes bytes(units.size() * sizeof(char16_t));
  std::memcpy(bytes.data(), units.data(), bytes.size());
  ++last_;
  EDTTextBlock25_4 block{};
  block.rawText = static_cast<std::int16_t>(last_);
  StoreRecord(records_, kTextBlockTag, last_, block);
  records_.Save(kRawTextTag, KeyOf(last_), std::move(bytes));
  return last_;
}

}  // namespace brvhost
