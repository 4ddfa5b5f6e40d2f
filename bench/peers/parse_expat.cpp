// Parses an XML file with expat, and does nothing else.
#include <expat.h>

#include <cstdio>

int main(int argc, char** argv) {
  constexpr int kChunk = 1 << 16;
  std::FILE* const file = argc == 2 ? std::fopen(argv[1], "rb") : nullptr;
  if (file == nullptr) return 2;
  const XML_Parser parser = XML_ParserCreate(nullptr);
  for (bool last = false; !last;) {
    const auto count = std::fread(XML_GetBuffer(parser, kChunk), 1, kChunk, file);
    last = count < kChunk;
    if (XML_ParseBuffer(parser, static_cast<int>(count), last) != XML_STATUS_OK) return 1;
  }
  XML_ParserFree(parser);
  std::fclose(file);
}
