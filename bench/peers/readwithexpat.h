// Feeds a file to expat.
#pragma once

#include <expat.h>

#include <cstdio>

// The exit status of a program that is called with the file's name: 0 when the file is well-formed.
inline int ReadWithExpat(int argc, char** argv, XML_Parser parser) {
  constexpr int kChunk = 1 << 16;
  std::FILE* const file = argc == 2 ? std::fopen(argv[1], "rb") : nullptr;
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
