// The part of CoreFoundation that the product calls, for Linux. Names, values and behaviour are those of the macOS
// framework. A reference from a function named Create or Copy belongs to the caller, who releases it with CFRelease;
// one from a function named Get belongs to the object that returned it. Objects may be used from one thread at a time.
// No call throws: if memory runs out or a file cannot be read, it returns null, 0 or false, and can be made again.
#pragma once

#include <stdarg.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define BRVPLATFORM_EXPORT __attribute__((visibility("default")))

typedef unsigned char Boolean;
typedef unsigned char UInt8;
typedef unsigned short UniChar;
typedef int32_t SInt32;
typedef uint32_t UInt32;
typedef long CFIndex;
typedef unsigned long CFTypeID;
typedef unsigned long CFOptionFlags;
typedef UInt32 CFStringEncoding;
typedef unsigned char* StringPtr;
typedef const unsigned char* ConstStringPtr;

typedef const void* CFTypeRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFString* CFStringRef;
typedef const struct __CFURL* CFURLRef;
typedef const struct __CFDictionary* CFDictionaryRef;
typedef struct __CFBundle* CFBundleRef;

typedef struct {
  CFIndex location;
  CFIndex length;
} CFRange;

static inline CFRange CFRangeMake(CFIndex location, CFIndex length) {
  CFRange range = {location, length};
  return range;
}

typedef CFIndex CFComparisonResult;
enum { kCFCompareLessThan = -1L, kCFCompareEqualTo = 0, kCFCompareGreaterThan = 1 };
typedef CFOptionFlags CFStringCompareFlags;

enum {
  kCFStringEncodingMacRoman = 0,
  kCFStringEncodingWindowsLatin1 = 0x0500,
  kCFStringEncodingISOLatin1 = 0x0201,
  kCFStringEncodingASCII = 0x0600,
  kCFStringEncodingUnicode = 0x0100,
  kCFStringEncodingUTF16 = 0x0100,
  kCFStringEncodingUTF8 = 0x08000100,
  kCFStringEncodingUTF16BE = 0x10000100,
  kCFStringEncodingUTF16LE = 0x14000100
};

#define kCFAllocatorDefault ((CFAllocatorRef)0)

// Objects ------------------------------------------------------------------------------------------------------------
BRVPLATFORM_EXPORT CFTypeRef CFRetain(CFTypeRef object);
BRVPLATFORM_EXPORT void CFRelease(CFTypeRef object);
BRVPLATFORM_EXPORT CFTypeID CFGetTypeID(CFTypeRef object);
BRVPLATFORM_EXPORT Boolean CFEqual(CFTypeRef a, CFTypeRef b);
// Writes a description of the object, for a string its text, to the standard error stream as UTF-8, with '?' for each
// lone surrogate. Adds a line break to one that does not end in one.
BRVPLATFORM_EXPORT void CFShow(CFTypeRef object);

// Strings ------------------------------------------------------------------------------------------------------------
BRVPLATFORM_EXPORT CFTypeID CFStringGetTypeID(void);
BRVPLATFORM_EXPORT CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text,
                                                         CFStringEncoding encoding);
BRVPLATFORM_EXPORT CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar* units,
                                                            CFIndex count);
BRVPLATFORM_EXPORT CFStringRef CFStringCreateWithFormat(CFAllocatorRef allocator, CFDictionaryRef formatOptions,
                                                        CFStringRef format, ...);
BRVPLATFORM_EXPORT CFStringRef CFStringCreateWithFormatAndArguments(CFAllocatorRef allocator,
                                                                    CFDictionaryRef formatOptions, CFStringRef format,
                                                                    va_list arguments);
BRVPLATFORM_EXPORT CFIndex CFStringGetLength(CFStringRef string);
BRVPLATFORM_EXPORT void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* units);
BRVPLATFORM_EXPORT CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding,
                                            UInt8 lossByte, Boolean isExternalRepresentation, UInt8* buffer,
                                            CFIndex bufferSize, CFIndex* usedSize);
BRVPLATFORM_EXPORT Boolean CFStringGetPascalString(CFStringRef string, StringPtr buffer, CFIndex bufferSize,
                                                   CFStringEncoding encoding);
BRVPLATFORM_EXPORT Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex bufferSize,
                                              CFStringEncoding encoding);
BRVPLATFORM_EXPORT CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding);
BRVPLATFORM_EXPORT SInt32 CFStringGetIntValue(CFStringRef string);
BRVPLATFORM_EXPORT CFComparisonResult CFStringCompare(CFStringRef a, CFStringRef b, CFStringCompareFlags options);

// A string that is never released, from a literal in UTF-8; null if memory runs out. Calls that are given null for a
// format, a key, a name or an identifier return null.
BRVPLATFORM_EXPORT CFStringRef __CFStringMakeConstantString(const char* text);
#define CFSTR(literal) __CFStringMakeConstantString("" literal "")

// Bundles ------------------------------------------------------------------------------------------------------------
BRVPLATFORM_EXPORT extern const CFStringRef kCFBundleExecutableKey;
BRVPLATFORM_EXPORT extern const CFStringRef kCFBundleIdentifierKey;

BRVPLATFORM_EXPORT CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef allocator, const UInt8* path,
                                                                    CFIndex length, Boolean isDirectory);
// Writes the path of a file URL, ended by a zero; false if it does not fit.
BRVPLATFORM_EXPORT Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean resolveAgainstBase, UInt8* buffer,
                                                            CFIndex bufferSize);

// Each folder has one bundle: as long as it exists, another call for the same folder returns the same object.
BRVPLATFORM_EXPORT CFBundleRef CFBundleCreate(CFAllocatorRef allocator, CFURLRef url);
BRVPLATFORM_EXPORT CFBundleRef CFBundleGetMainBundle(void);
BRVPLATFORM_EXPORT CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef identifier);
BRVPLATFORM_EXPORT CFStringRef CFBundleGetIdentifier(CFBundleRef bundle);
BRVPLATFORM_EXPORT CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key);
BRVPLATFORM_EXPORT CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type,
                                                    CFStringRef subdirectory);
BRVPLATFORM_EXPORT CFURLRef CFBundleCopyExecutableURL(CFBundleRef bundle);
BRVPLATFORM_EXPORT CFStringRef CFBundleCopyLocalizedString(CFBundleRef bundle, CFStringRef key, CFStringRef value,
                                                           CFStringRef table);
BRVPLATFORM_EXPORT Boolean CFBundleIsExecutableLoaded(CFBundleRef bundle);
// Loads the executable if it is not loaded, and looks the function up in it, never elsewhere.
BRVPLATFORM_EXPORT void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name);

#ifdef __cplusplus
}
#endif
