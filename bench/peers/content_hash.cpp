// Prints a number that is the same for two XML files of the same content: the same elements, attributes in any order,
// and text.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "readwithexpat.h"

namespace {

struct Hash {
  std::uint64_t value = 14695981039346656037u;

  void Add(std::string_view text) {
    for (const char character : text) Add(static_cast<unsigned char>(character));
    Add(0x100);
  }
  void Add(std::uint64_t number) { value = (value ^ number) * 1099511628211u; }
};

struct Content {
  Hash hash;
  std::string text;  // comes in pieces

  void EndText() {
    hash.Add(text);
    text.clear();
  }
};

void OnStart(void* data, const char* name, const char** attributes) {
  auto& content = *static_cast<Content*>(data);
  content.EndText();
  content.hash.Add(name);
  std::vector<std::string> sorted;
  for (; *attributes != nullptr; attributes += 2) sorted.push_back(std::string(attributes[0]) + "=" + attributes[1]);
  std::ranges::sort(sorted);
  for (const std::string& attribute : sorted) content.hash.Add(attribute);
}

void OnEnd(void* data, const char*) {
  auto& content = *static_cast<Content*>(data);
  content.EndText();
  content.hash.Add(0x101);
}

void OnText(void* data, const char* text, int length) {
  static_cast<Content*>(data)->text.append(text, static_cast<std::size_t>(length));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  Content content;
  const XML_Parser parser = XML_ParserCreate(nullptr);
  XML_SetUserData(parser, &content);
  XML_SetElementHandler(parser, OnStart, OnEnd);
  XML_SetCharacterDataHandler(parser, OnText);
  const int status = ReadWithExpat(argv[1], parser);
  if (status == 0) std::printf("%016llx\n", static_cast<unsigned long long>(content.hash.value));
  return status;
}
