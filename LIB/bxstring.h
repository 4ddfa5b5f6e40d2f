// The byte-string functions of C for UTF-16 text: pointers to 16-bit units, ended by a 0 unit.
//
// What all of them share:
//
// - Lengths, counts and positions are in units, never in bytes. A surrogate pair is two units; nothing is interpreted.
//   Units are compared as unsigned numbers.
// - No pointer may be null. Text may stand at any address, an odd one too.
// - What is copied may overlap the place that it is copied to where that is in front of it. Any other overlap is the
//   caller's error.
// - None reads a byte of a page that its text does not reach, and none but bx_sprintf allocates.
// - Nothing fails. [any-thread]
#pragma once

#include <cstddef>

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// The number of units before the 0 unit.
BRV_EXPORT std::size_t bx_strlen(const UniChar* s);

// The first unit of s that equals the low 16 bits of unit, or null if there is none. A search for 0 finds the unit that
// ends s. The result points into s, and may be written through where s may.
BRV_EXPORT UniChar* bx_strchr(const UniChar* s, ushort16 unit);

// The first place in haystack where all of needle stands, or null if there is none. An empty needle is found at the
// very start. The result points into haystack, and may be written through where haystack may. Takes time in proportion
// to the product of both lengths at worst.
BRV_EXPORT UniChar* bx_strstr(const UniChar* haystack, const UniChar* needle);

// Compares unit by unit: exactly -1 if a comes before b, 0 if they are equal, 1 if a comes after b. The beginning of a
// longer text comes before it.
BRV_EXPORT int32 bx_strcmp(const UniChar* a, const UniChar* b);

// bx_strcmp of no more than the first n units. Nothing comes before nothing: with n = 0 the result is 0.
BRV_EXPORT int32 bx_strncmp(const UniChar* a, const UniChar* b, std::size_t n);

// Writes exactly n units to dst: those of src, then 0 units. A src of n units or more leaves dst without a 0 unit at
// its end. With n = 0 nothing is written.
BRV_EXPORT void bx_strncpy(UniChar* dst, const UniChar* src, std::size_t n);

// Appends all of src to the text in dst. dstSize, the size of dst in units, makes calls look like those of the bounded
// functions, but is not used, and nothing is cut. Check that bx_strlen(dst) + bx_strlen(src) is less than the size
// first.
BRV_EXPORT void bx_strcat(UniChar* dst, std::size_t dstSize, const UniChar* src);

// Formats text as the platform's strings do (CFStringCreateWithFormat): the conversions of printf, `%@` for a CFString,
// `%S` for units ended by 0, `%C` for one unit, positions as in `%2$d`, widths and precisions as `*`.
//
// dstSize is the size of dst in units, with the final 0 unit, and must be at least 1. A longer result is cut to
// dstSize - 1 units, even between the halves of a surrogate pair. Never pass 0: then nothing is cut. A format that the
// platform cannot use is the caller's error.
//
// Returns the number of units written, without the final 0 unit: after a cut, fewer than the whole result has.
//
// Example:
//   UniChar text[64];
//   bx_sprintf(text, 64, kFormat, 12);  // where kFormat is u"measure %d" in units
BRV_EXPORT int32 bx_sprintf(UniChar* dst, std::size_t dstSize, const UniChar* format, ...);

}  // extern "C"

// Copies src to dst, the 0 unit included.
BRV_EXPORT void bx_strcpy(UniChar* dst, const UniChar* src);

// The same. dstSize, the size of dst in units, makes calls look like those of the bounded functions, but is not used,
// and nothing is cut. Where src may be too long, use bx_strncpy and end dst yourself.
//
// Example:
//
//   bx_strncpy(dst, src, dstSize - 1);
//   dst[dstSize - 1] = 0;
BRV_EXPORT void bx_strcpy(UniChar* dst, std::size_t dstSize, const UniChar* src);
