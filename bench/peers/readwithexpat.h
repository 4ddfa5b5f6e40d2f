// Feeds a file to expat.
#pragma once

#include <expat.h>

#include <cstdio>

// The exit status of a program that reads the file with the parser, and frees it: 0 when the file is well-formed.
inline int ReadWithExpat(const char* path, XML_Parser parser) {
  constexpr int kChunk = 1 << 16;
  std::FILE* const file = std::fopen(path, "rb");
  if (file == nullptr) return 2;
  for (bool last = false; !last;) {
    const auto count = std::fread(XML_GetBuffer(parser, kChunk), 1, kChunk, file);
    last = count < kChunk;
    if (XML_ParseBuffer(parser, static_cast<int>(count), last) != XML_STATUS_OK) return 1;
  }
  XML_ParserFree(parser);
  std::fclose(file);
  return 0;
}
