// The byte-string functions of C for UTF-16 text: pointers to 16-bit units, ended by a 0 unit.
//
// All of them share this:
//
// - Lengths, counts and positions are in units, never in bytes. A surrogate pair is two units, and is not interpreted.
//   Units are compared as unsigned numbers.
// - No pointer may be null. Text may be at any address, even an odd one.
// - Source and destination of a copy may overlap if the destination is at the lower address. Any other overlap is the
//   caller's error.
// - None reads from a page that its text does not reach. Only bx_sprintf allocates.
// - None fails. [any-thread]
#pragma once

#include <cstddef>

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// Returns the number of units before the 0 unit.
BRV_EXPORT std::size_t bx_strlen(const UniChar* s);

// Returns the first unit of s that equals the low 16 bits of unit, or null if there is none. A search for 0 finds the
// unit that ends s. The result points into s, and may be written to if s may.
BRV_EXPORT UniChar* bx_strchr(const UniChar* s, ushort16 unit);

// Returns the first place in haystack where needle is found, or null if there is none. An empty needle is found at the
// start. The result points into haystack, and may be written to if haystack may. At worst, the time is proportional to
// the product of both lengths.
BRV_EXPORT UniChar* bx_strstr(const UniChar* haystack, const UniChar* needle);

// Compares unit by unit. Returns exactly -1 if a comes before b, 0 if they are equal, 1 if a comes after b. A text
// comes before any longer text that begins with it.
BRV_EXPORT int32 bx_strcmp(const UniChar* a, const UniChar* b);

// Compares at most the first n units, as bx_strcmp does whole texts. With n = 0 the result is 0.
BRV_EXPORT int32 bx_strncmp(const UniChar* a, const UniChar* b, std::size_t n);

// Writes exactly n units to dst: those of src, then 0 units. If src has n units or more, dst is left without a final 0
// unit. With n = 0 nothing is written.
BRV_EXPORT void bx_strncpy(UniChar* dst, const UniChar* src, std::size_t n);

// Appends all of src to the text in dst. dstSize, the size of dst in units, makes calls look like those of the bounded
// functions, but is not used, and nothing is cut. Check that bx_strlen(dst) + bx_strlen(src) is less than the size
// first.
BRV_EXPORT void bx_strcat(UniChar* dst, std::size_t dstSize, const UniChar* src);

// Formats text with the platform's formatter (CFStringCreateWithFormat). It knows the conversions of printf, `%@` for a
// CFString, `%S` for units ended by 0, `%C` for one unit, positions as in `%2$d`, and `*` for widths and precisions.
//
// dstSize is the size of dst in units, with the final 0 unit, and must be at least 1. A longer result is cut to
// dstSize - 1 units, even between the halves of a surrogate pair. Never pass 0: then nothing is cut. A format that the
// platform cannot use is the caller's error.
//
// Returns the number of units written, without the final 0 unit: after a cut, fewer than the whole result has. Where
// memory runs out, the text is empty.
//
// Example:
//   UniChar text[64];
//   bx_sprintf(text, 64, kFormat, 12);  // where kFormat is u"measure %d" in units
BRV_EXPORT int32 bx_sprintf(UniChar* dst, std::size_t dstSize, const UniChar* format, ...);

}  // extern "C"

// Copies src to dst, the 0 unit included.
BRV_EXPORT void bx_strcpy(UniChar* dst, const UniChar* src);

// Copies src to dst, the 0 unit included. dstSize, the size of dst in units, makes calls look like those of the bounded
// functions, but is not used, and nothing is cut. Where src may be too long, use bx_strncpy and end dst yourself.
//
// Example:
//
//   bx_strncpy(dst, src, dstSize - 1);
//   dst[dstSize - 1] = 0;
BRV_EXPORT void bx_strcpy(UniChar* dst, std::size_t dstSize, const UniChar* src);
