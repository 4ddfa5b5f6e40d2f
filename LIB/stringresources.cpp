#include <Carbon/Carbon.h>

#include <algorithm>
#include <cstring>

#include "brevixpdk.h"
#include "convention.h"
#include "integerclasses.h"
#include "pluginbundle.h"
#include "portable.h"
#include "stringids.h"

namespace {

CFStringRef CreateKey(int id) {
  return CFStringCreateWithCString(kCFAllocatorDefault, StringKey(id).text, kCFStringEncodingUTF8);
}

bool HasStringTable(CFBundleRef bundle) {
  const CFURLRef url = CFBundleCopyResourceURL(bundle, CFSTR("Localizable"), CFSTR("strings"), nullptr);
  if (url == nullptr) return false;
  CFRelease(url);
  return true;
}

// Converts into a zero-terminated text of at most 255 bytes.
void ConvertForApplication(CFStringRef text, char (&converted)[256]) {
  unsigned char pascal[256];
  pascal[0] = 0;
  // Compatibility: a text that cannot be converted, or is too long, comes out empty or cut, and nothing reports it.
  // Hosts ask for menu texts in encodings that cannot hold them, and take an empty one for none.
  CFStringGetPascalString(text, pascal, sizeof(pascal), GetApplicationTextEncoding());
  std::memcpy(converted, pascal + 1, pascal[0]);
  converted[pascal[0]] = '\0';
}

}  // namespace

CFStringRef CopyPlugInStringResource(int id) {
  const CFBundleRef bundle = GetPluginBundle();
  const CFStringRef key = CreateKey(id);
  if (key == nullptr) return nullptr;
  const CFStringRef value = CFBundleCopyLocalizedString(bundle, key, key, nullptr);
  const bool found = value != nullptr && CFStringCompare(value, key, 0) != kCFCompareEqualTo;
  CFRelease(key);
  // Compatibility: the alert comes at each lookup, not once a run: hosts ask for texts before they can show an alert,
  // and the first ones are lost.
  if (!found && !HasStringTable(bundle)) {
    BX_AlertMessage(nullptr, kAlertPlain, 0, "Missing Localizable.strings", kBrvVersion);
  }
  return value;
}

UniChar* PlugIn_GetStringResource(int id, UniChar* buffer, short size) {
  if (size <= 0) return nullptr;
  buffer[0] = 0;
  if (const CFStringRef text = CopyPlugInStringResource(id)) {
    const CFIndex count = std::min<CFIndex>(CFStringGetLength(text), size - 1);
    CFStringGetCharacters(text, CFRangeMake(0, count), buffer);
    buffer[count] = 0;
    CFRelease(text);
  }
  buffer[size - 1] = 0;
  return buffer;
}

char* PlugIn_GetStringResource(int id, char* buffer, short size) {
  if (size <= 0) return nullptr;
  buffer[0] = '\0';
  char converted[256] = "";
  if (const CFStringRef text = CopyPlugInStringResource(id)) {
    ConvertForApplication(text, converted);
    CFRelease(text);
  }
  std::strncpy(buffer, converted, static_cast<std::size_t>(size));
  buffer[size - 1] = '\0';
  return buffer;
}

short16 LoadIndString(short16 table, short16 index, char* buffer, short16 size) {
  if (PlugIn_GetStringResource(StringID(table, index), buffer, static_cast<short>(size)) == nullptr) return 0;
  return SignExtend16(static_cast<int>(std::strlen(buffer)));
}
