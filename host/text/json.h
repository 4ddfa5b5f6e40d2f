// JSON as it is printed: on one line, in ASCII, so that no terminal obeys what it holds.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace brvhost {

// Texts are put together without a tree of values, whose destruction may ask for memory.

// With its quotes. What is not UTF-8 becomes U+FFFD.
std::string JsonOf(std::string_view text);
std::string JsonArrayOf(const std::vector<std::string>& json);
std::string JsonArrayOfTexts(const std::vector<std::string>& texts);

// Of a list, with what makes JSON of one of its items.
template <class List, class Json>
std::string JsonArrayOf(const List& list, const Json& json) {
  std::vector<std::string> items;
  std::ranges::transform(list, std::back_inserter(items), json);
  return JsonArrayOf(items);
}

class JsonObject {
 public:
  JsonObject& AddText(std::string_view name, std::string_view text) { return AddJson(name, JsonOf(text)); }
  JsonObject& AddTextOrNull(std::string_view name, std::string_view text) {
    return text.empty() ? AddNull(name) : AddText(name, text);
  }
  JsonObject& AddNumber(std::string_view name, std::uint64_t number) { return AddJson(name, std::to_string(number)); }
  JsonObject& AddFlag(std::string_view name, bool flag) { return AddJson(name, flag ? "true" : "false"); }
  JsonObject& AddNull(std::string_view name) { return AddJson(name, "null"); }
  JsonObject& AddJson(std::string_view name, std::string_view json);

  // A path may be any bytes: where it is not UTF-8, a second member has them in base64, under the name with "Base64".
  JsonObject& AddPath(std::string_view name, std::string_view path);
  JsonObject& AddPathOrNull(std::string_view name, std::string_view path) {
    return path.empty() ? AddNull(name) : AddPath(name, path);
  }

  // Without the braces.
  const std::string& Members() const { return members_; }
  std::string Text() const { return "{" + members_ + "}"; }

 private:
  std::string members_;
};

}  // namespace brvhost
