#include "encodinglibrary.h"

#include <dlfcn.h>
#include <unicode/ucnv.h>

#include <cstddef>
#include <cstring>

#define TEXT_OF(name) #name
#define LINKER_NAME(name) TEXT_OF(name)

namespace encodinglibrary {

std::int64_t questions = 0;
std::function<int(std::string_view)> madeUp;

namespace {

const UConverter* madeUpConverter = nullptr;

UChar32 NextOfMadeUp(const char** source, const char* limit, UErrorCode* error) {
  const std::string_view bytes(*source, static_cast<std::size_t>(limit - *source));
  for (std::size_t size = 1; size <= bytes.size(); ++size) {
    const int answer = madeUp(bytes.substr(0, size));
    if (answer == kStart) continue;
    *source += size;
    if (answer == kNothing) *error = U_ILLEGAL_CHAR_FOUND;
    return answer;
  }
  *error = U_TRUNCATED_CHAR_FOUND;
  return kNothing;
}

template <class Function>
Function* Librarys(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace
}  // namespace encodinglibrary

// In the place of the library's own, to which they lead.

U_CAPI UConverter* U_EXPORT2 ucnv_open(const char* name, UErrorCode* error) {
  static auto* const librarys = encodinglibrary::Librarys<decltype(ucnv_open)>(LINKER_NAME(ucnv_open));
  if (std::strcmp(name, "made-up") != 0) return librarys(name, error);
  UConverter* const converter = librarys("ISO-8859-1", error);
  encodinglibrary::madeUpConverter = converter;
  return converter;
}

U_CAPI UChar32 U_EXPORT2 ucnv_getNextUChar(UConverter* converter, const char** source, const char* limit,
                                           UErrorCode* error) {
  static auto* const librarys = encodinglibrary::Librarys<decltype(ucnv_getNextUChar)>(LINKER_NAME(ucnv_getNextUChar));
  ++encodinglibrary::questions;
  if (converter == encodinglibrary::madeUpConverter) return encodinglibrary::NextOfMadeUp(source, limit, error);
  return librarys(converter, source, limit, error);
}

U_CAPI void U_EXPORT2 ucnv_close(UConverter* converter) {
  static auto* const librarys = encodinglibrary::Librarys<decltype(ucnv_close)>(LINKER_NAME(ucnv_close));
  if (converter == encodinglibrary::madeUpConverter) encodinglibrary::madeUpConverter = nullptr;
  librarys(converter);
}
