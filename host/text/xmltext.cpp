#include "host/text/xmltext.h"

#include <cstddef>

#include "host/text/printable.h"

namespace brvhost {
namespace {

void ReplaceAll(std::string& text, std::string_view old, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos; at += by.size()) {
    text.replace(at, old.size(), by);
  }
}

}  // namespace

std::string XmlOf(std::string_view text) {
  std::string xml = Printable(text);
  ReplaceAll(xml, "&", "&amp;");
  ReplaceAll(xml, "<", "&lt;");
  ReplaceAll(xml, ">", "&gt;");
  ReplaceAll(xml, "\"", "&quot;");
  for (const char* const forbidden : {"\uFFFE", "\uFFFF"}) ReplaceAll(xml, forbidden, "\uFFFD");
  return xml;
}

}  // namespace brvhost
