// Stands between the reader and the library of encodings: counts what the library is asked, and answers in its place
// for an encoding of a test's own.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace encodinglibrary {

// How many sequences of bytes the library has been asked about.
extern std::int64_t questions;

// What bytes can be that are not a character.
constexpr int kNothing = -1;
constexpr int kStart = -2;

// The character that these bytes are in the encoding "made-up", or what else they are.
extern std::function<int(std::string_view bytes)> madeUp;

}  // namespace encodinglibrary
