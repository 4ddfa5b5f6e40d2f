#include "propertylist.h"

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <utility>

#include "binaryplist.h"
#include "cfstring.h"
#include "propertyvalue.h"
#include "stringsfile.h"
#include "textencoding.h"
#include "utf.h"

namespace brvplatform {
namespace {

using Node = std::unique_ptr<void, decltype([](plist_t node) { plist_free(node); })>;

// Memory that the reader of property lists hands out.
template <class Type>
using Handed = std::unique_ptr<Type, decltype([](Type* memory) { std::free(memory); })>;

Owned<CFTypeRef> ValueOf(plist_t node) {
  if (plist_get_node_type(node) != PLIST_STRING) return NewOtherValue();
  std::uint64_t length = 0;
  const char* text = plist_get_string_ptr(node, &length);
  std::optional<std::u16string> units = DecodeUtf8({text, length});
  return units ? Owned<CFTypeRef>(NewString(std::move(*units))) : NewOtherValue();
}

std::optional<Dictionary> DictionaryOf(plist_t root) {
  if (root == nullptr || plist_get_node_type(root) != PLIST_DICT) return std::nullopt;
  Dictionary dictionary;
  plist_dict_iter made = nullptr;
  plist_dict_new_iter(root, &made);
  const Handed<void> iterator(made);
  while (true) {
    char* name = nullptr;
    plist_t value = nullptr;
    plist_dict_next_item(root, iterator.get(), &name, &value);
    if (name == nullptr) return dictionary;
    const Handed<char> key(name);
    if (std::optional<std::u16string> units = DecodeUtf8(key.get())) dictionary[std::move(*units)] = ValueOf(value);
  }
}

// Whether arrays and dictionaries are nested deeper than any list that is written. The reader of XML calls itself for
// each: a file must not exhaust the stack. Tags in comments count too.
bool IsNestedTooDeep(std::string_view xml) {
  constexpr int kDeepest = 200;
  int depth = 0;
  for (std::size_t at = xml.find('<'); at != xml.npos && depth <= kDeepest; at = xml.find('<', at + 1)) {
    const std::string_view tag = xml.substr(at + 1);
    if (tag.starts_with("/array") || tag.starts_with("/dict")) --depth;
    if (!tag.starts_with("array") && !tag.starts_with("dict")) continue;
    const std::size_t afterName = tag.find_first_not_of("abcdefghijklmnopqrstuvwxyz \t\r\n");
    if (afterName != tag.npos && tag[afterName] != '/') ++depth;
  }
  return depth > kDeepest;
}

std::optional<Dictionary> ParseXml(const std::string& utf8) {
  if (IsNestedTooDeep(utf8)) return std::nullopt;
  plist_t root = nullptr;
  plist_from_xml(utf8.data(), static_cast<std::uint32_t>(utf8.size()), &root);
  const Node owner(root);
  return DictionaryOf(root);
}

// The text of a file: by its byte order mark, else UTF-8.
std::optional<std::u16string> TextOf(std::string_view bytes) {
  using namespace std::string_view_literals;
  if (bytes.starts_with("\xFF\xFE\0\0"sv)) return DecodeUtf32(bytes.substr(4), false);
  if (bytes.starts_with("\0\0\xFE\xFF"sv)) return DecodeUtf32(bytes.substr(4), true);
  if (bytes.starts_with("\xFE\xFF"sv) || bytes.starts_with("\xFF\xFE"sv)) return DecodeUtf16(bytes);
  return DecodeUtf8(bytes);
}

bool IsXml(std::u16string_view text) {
  const std::size_t first = text.find_first_not_of(u" \t\r\n");
  return first != text.npos && text.substr(first, 1) == u"<" &&
         (text.substr(first).starts_with(u"<?xml") || text.substr(first).starts_with(u"<!DOCTYPE") ||
          text.substr(first).starts_with(u"<plist"));
}

}  // namespace

std::optional<Dictionary> ParsePropertyList(std::string_view bytes) {
  if (bytes.starts_with("bplist")) return ParseBinary(bytes);
  const std::optional<std::u16string> text = TextOf(bytes);
  if (!text) return std::nullopt;
  if (IsXml(*text)) return ParseXml(Encode(*text, kCFStringEncodingUTF8));
  return ParseOldStyle(*text);
}

}  // namespace brvplatform
