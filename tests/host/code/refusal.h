// Why a file of code is refused.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "host/code/codebytes.h"
#include "host/code/codeimage.h"

namespace brvhost {

// Empty for a file that is read.
inline std::string RefusalOf(std::string_view bytes) {
  try {
    ImagesIn(bytes);
    return "";
  } catch (const CodeError& error) {
    return error.what();
  }
}

// Each shorter file, and each with another byte in some place, is read or refused: it breaks nothing.
inline void ExpectHarmlessWhenGarbled(const std::string& bytes) {
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    // In memory that ends where the file does.
    const std::string cut(bytes, 0, size);
    const std::string refusal = RefusalOf(std::string_view(cut));
    EXPECT_TRUE(refusal.empty() || refusal.find_first_of(".:") == std::string::npos) << refusal;
  }
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    for (const char byte : {'\x00', '\x01', '\x7F', '\x80', '\xFF'}) {
      std::string garbled = bytes;
      garbled[at] = byte;
      (void)RefusalOf(garbled);
    }
  }
}

}  // namespace brvhost
