// Dictionaries of any texts, written as .strings files with any quotes, escapes, comments and blanks, and as XML.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/platform/dictionaries.h"
#include "fuzz/platform/unicode.h"
#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"

namespace {

using namespace brvplatform;

// Units that mean something in a file, and others; no surrogates.
std::u16string AnyText(Input& input) {
  constexpr std::u16string_view kUnits = u"aZ09 _$/:.-\"'\\;={}()<>,*&\n\r\t\a\v%U17\u2028\u00E9\u266D\uFEFF";
  std::u16string text;
  for (int length = input.Below(12); length > 0; --length) {
    const auto number = static_cast<std::size_t>(input.Byte());
    text += number < kUnits.size() ? kUnits[number] : static_cast<char16_t>(number < 250 ? number : 0x3000 + number);
  }
  return text;
}

bool CanStandAlone(std::u16string_view text) {
  constexpr std::u16string_view kPlain = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_$:.-";
  return !text.empty() && !text.starts_with(u"//") && text.find_first_not_of(kPlain) == std::u16string_view::npos;
}

std::u16string Hex(char16_t unit) {
  constexpr std::u16string_view kDigits = u"0123456789aBcDeF";
  std::u16string digits;
  for (int shift = 12; shift >= 0; shift -= 4) digits += kDigits[static_cast<std::size_t>(unit >> shift & 15)];
  return digits;
}

std::u16string Escaped(char16_t unit, Input& input) {
  switch (unit) {
    case u'\n':
      return u"\\n";
    case u'\t':
      return u"\\t";
    case u'\r':
      return u"\\r";
    case u'\a':
      return u"\\a";
    case u'\v':
      return u"\\v";
    default:
      break;
  }
  if (unit < 0x80 && input.Flag()) {
    std::u16string octal = {u'\\', static_cast<char16_t>(u'0' + (unit >> 6)),
                            static_cast<char16_t>(u'0' + (unit >> 3 & 7)), static_cast<char16_t>(u'0' + (unit & 7))};
    return octal;
  }
  return u"\\U" + Hex(unit);
}

std::u16string Written(const std::u16string& text, Input& input) {
  if (CanStandAlone(text) && input.Flag()) return text;
  const char16_t quote = input.Flag() ? u'"' : u'\'';
  std::u16string written(1, quote);
  for (const char16_t unit : text) {
    if ((unit == quote || unit == u'\\') && input.Flag()) {
      written.append(1, u'\\').append(1, unit);
    } else if (unit == quote || unit == u'\\' || unit == 0 || input.Below(4) == 0) {
      written += Escaped(unit, input);
    } else {
      written += unit;
    }
  }
  return written + quote;
}

std::u16string AnyBlanks(Input& input) {
  constexpr const char16_t* kBlanks[] = {u"",       u" ",      u"\n",  u"\t\r\n", u"/* a = \"b\"; */",
                                         u"// c\n", u"\u2028", u"/**/"};
  return kBlanks[input.Below(static_cast<int>(std::size(kBlanks)))];
}

// What is no text: each counts as a value of no use.
std::u16string OtherValue(Input& input) {
  constexpr const char16_t* kValues[] = {u"{}", u"()", u"<0aF 9>", u"(a, (b, 'c'), {d = e;},)", u"{ a = (b); 'c'; }"};
  return kValues[input.Below(static_cast<int>(std::size(kValues)))];
}

struct Pair {
  std::u16string key;
  std::optional<std::u16string> value;
};

std::vector<Pair> AnyPairs(Input& input) {
  std::vector<Pair> pairs(static_cast<std::size_t>(input.Below(6)));
  for (Pair& pair : pairs) {
    pair.key = AnyText(input);
    if (input.Below(8) != 0) pair.value = AnyText(input);
  }
  return pairs;
}

std::u16string OldStyle(const std::vector<Pair>& pairs, Input& input) {
  const bool inBraces = input.Flag();
  std::u16string file = AnyBlanks(input);
  if (inBraces) file += u"{";
  for (const auto& [key, value] : pairs) {
    file += AnyBlanks(input) + Written(key, input);
    const bool valueIsKey = value == key && input.Flag();
    // Without a blank between, a comment that starts after a text without quotes would be part of it.
    if (!valueIsKey) file += u" " + AnyBlanks(input) + u"=" + AnyBlanks(input);
    if (!valueIsKey) file += value ? Written(*value, input) : OtherValue(input);
    file += u" " + AnyBlanks(input) + u";";
  }
  file += AnyBlanks(input);
  return inBraces ? file + u"}" : file;
}

std::u16string XmlText(std::u16string_view text) {
  std::u16string xml;
  for (const char16_t unit : text) {
    switch (unit) {
      case u'<':
        xml += u"&lt;";
        break;
      case u'>':
        xml += u"&gt;";
        break;
      case u'&':
        xml += u"&amp;";
        break;
      default:
        xml += unit;
    }
  }
  return xml;
}

std::u16string Xml(const std::vector<Pair>& pairs) {
  std::u16string file = u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>";
  for (const auto& [key, value] : pairs) {
    file += u"<key>" + XmlText(key) + u"</key>";
    file += value ? u"<string>" + XmlText(*value) + u"</string>" : u"<array><true/></array>";
  }
  return file + u"</dict></plist>";
}

// Whether XML can hold the text. A mark at the start of a text in UTF-8 is not part of it.
bool IsXmlText(std::u16string_view text) {
  if (text.starts_with(u'\xFEFF')) return false;
  for (const char16_t unit : text) {
    if (unit < u' ' || unit == 0xFFFE || unit == 0xFFFF) return false;
  }
  return true;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  const std::vector<Pair> pairs = AnyPairs(input);
  Texts expected;
  bool isXml = true;
  for (const auto& [key, value] : pairs) {
    expected[key] = value;
    isXml = isXml && IsXmlText(key) && (!value || IsXmlText(*value));
  }
  const Form form = kForms[input.Below(static_cast<int>(std::size(kForms)))];
  Require(TextsIn(InForm(OldStyle(pairs, input), form)) == expected, "a .strings file is read as it was written");
  if (isXml) Require(TextsIn(InForm(Xml(pairs), form)) == expected, "a property list in XML is read as it was written");
  return 0;
}
