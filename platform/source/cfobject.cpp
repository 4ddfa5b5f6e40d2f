#include "cfobject.h"

#include <cstdio>

#include "boundary.h"
#include "textencoding.h"

using namespace brvplatform;

CFTypeRef CFRetain(CFTypeRef object) {
  ObjectOf(object).Retain();
  return object;
}

void CFRelease(CFTypeRef object) { ObjectOf(object).Release(); }

CFTypeID CFGetTypeID(CFTypeRef object) { return ObjectOf(object).TypeID(); }

Boolean CFEqual(CFTypeRef a, CFTypeRef b) { return a == b || ObjectOf(a).Equals(ObjectOf(b)); }

void CFShow(CFTypeRef object) {
  OrNothing([&] {
    std::string text = object == nullptr ? "(null)" : Encode(ObjectOf(object).Description(), kCFStringEncodingUTF8);
    if (!text.ends_with('\n')) text.push_back('\n');
    std::fwrite(text.data(), 1, text.size(), stderr);
  });
}
