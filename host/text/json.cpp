#include "host/text/json.h"

#include <fmt/format.h>
#include <unicode/utf8.h>

#include <cstddef>
#include <iterator>

namespace brvhost {
namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;

// The characters of a text. What is not UTF-8 is below 0.
template <class Visit>
void ForEachCharacter(std::string_view text, const Visit& visit) {
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  for (std::size_t i = 0; i < text.size();) {
    UChar32 character;
    U8_NEXT(bytes, i, text.size(), character);
    visit(character);
  }
}

bool IsUtf8(std::string_view text) {
  bool isUtf8 = true;
  ForEachCharacter(text, [&isUtf8](UChar32 character) { isUtf8 = isUtf8 && character >= 0; });
  return isUtf8;
}

bool IsPlain(std::uint32_t character) {
  return character >= 0x20 && character < 0x7F && character != '"' && character != '\\';
}

void AppendEscape(std::string& json, std::uint32_t unit) {
  fmt::format_to(std::back_inserter(json), "\\u{:04x}", unit);
}

void AppendCharacter(std::string& json, std::uint32_t character) {
  if (IsPlain(character)) {
    json += static_cast<char>(character);
  } else if (character == '"' || character == '\\') {
    (json += '\\') += static_cast<char>(character);
  } else if (character < 0x10000) {
    AppendEscape(json, character);
  } else {
    AppendEscape(json, 0xD800 + ((character - 0x10000) >> 10));
    AppendEscape(json, 0xDC00 + (character & 0x3FF));
  }
}

std::string Base64Of(std::string_view bytes) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  constexpr std::size_t kBytes = 3;  // in four digits
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += kBytes) {
    const std::string_view group = bytes.substr(i, kBytes);
    std::uint32_t bits = 0;
    for (std::size_t j = 0; j < kBytes; ++j) {
      bits = bits << 8 | (j < group.size() ? static_cast<unsigned char>(group[j]) : 0u);
    }
    for (std::size_t j = 0; j <= kBytes; ++j) text += j <= group.size() ? kDigits[bits >> (18 - 6 * j) & 63] : '=';
  }
  return text;
}

}  // namespace

std::string JsonOf(std::string_view text) {
  std::string json = "\"";
  ForEachCharacter(text, [&json](UChar32 character) {
    AppendCharacter(json, character < 0 ? kReplacement : static_cast<std::uint32_t>(character));
  });
  return json + '"';
}

std::string JsonArrayOf(const std::vector<std::string>& json) { return fmt::format("[{}]", fmt::join(json, ",")); }

std::string JsonArrayOfTexts(const std::vector<std::string>& texts) { return JsonArrayOf(texts, JsonOf); }

JsonObject& JsonObject::AddJson(std::string_view name, std::string_view json) {
  if (!members_.empty()) members_ += ',';
  members_.append(JsonOf(name)).append(":").append(json);
  return *this;
}

JsonObject& JsonObject::AddPath(std::string_view name, std::string_view path) {
  AddText(name, path);
  if (IsUtf8(path)) return *this;
  return AddText(std::string(name) + "Base64", Base64Of(path));
}

}  // namespace brvhost
