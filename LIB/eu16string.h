// A UTF-16 text that owns its units.
//
// Positions count from 1, and everything is in 16-bit units: a surrogate pair is two of them. Bounds are forgiving:
// what lies outside of the text is clipped or ignored, and never an error. 8-bit text is in the application's own
// encoding (GetApplicationTextEncoding, asked at each conversion) or, where it says so, in UTF-8. Running out of memory
// throws std::bad_alloc. [any-thread, one at a time for an object]
#pragma once

#include <cstdint>
#include <string>

#include "hostrecords.h"
#include "hosttypes.h"
#include "unittraits.h"

class eu16string;

// The number that the text begins with, after blanks, as CFStringGetIntValue reads it: 0 if it begins with none.
// defaultValue is the result for an empty text, and for no other.
BRV_EXPORT int32 StrToIntDef(eu16string text, int32 defaultValue);

// The number in decimal digits.
BRV_EXPORT eu16string IntToEu16Str(long value);

class BRV_EXPORT eu16string {
 public:
  // The text in the application's encoding, ended by a zero. Empty if the bytes are not text in it.
  eu16string(const char* text);
  // The text in UTF-8, ended by a zero. Empty if the bytes are not UTF-8.
  eu16string(const unsigned char* utf8Text);
  // The one character of a code point: a surrogate pair from 0x10000 to 0x10FFFF, else the unit of its low 16 bits,
  // whatever it is. Empty if that unit is 0.
  eu16string(unsigned int codePoint);
  // The one character in the application's encoding. Empty for 0.
  eu16string(char character);

  // Not inline: whoever copies may have been compiled with a standard library whose string is another.
  eu16string(const eu16string&);
  eu16string(eu16string&&) noexcept;
  eu16string& operator=(const eu16string&);
  eu16string& operator=(eu16string&&) noexcept;
  virtual ~eu16string();

  // Sets text to this text in the application's encoding, with '?' for each character that the encoding does not have.
  // A 0 unit ends it.
  void GetStdString(std::string& text) const;

  // The position of the first place where other stands in this text; 0 if there is none. An empty other stands at 1,
  // but nowhere in an empty text.
  int32 AnsiPos(const eu16string& other) const;

  // Removes count units from index on, or all there are from there. An index of 0 or behind the end removes nothing,
  // and so does a count below 1. Returns this text.
  eu16string& AnsiDelete(std::uint32_t index, std::int32_t count);

  // A text of the count units from start on, or of all there are from there. A start below 1 is taken as 1, at the full
  // count: AnsiDelete does otherwise. Empty where start is behind the end or count below 1.
  eu16string AnsiSubString(std::int32_t start, std::int32_t count) const;

  // Cuts the text to its first length units. Never makes it longer. Returns this text.
  eu16string& AnsiSetLength(std::uint32_t length);

  // The unit at index, or 32, a space, if there is none.
  UniChar AnsiCharAtIndex(std::int32_t index) const;

  // The unit at index, to be read or written, until the text changes. Outside of the text it is the first unit, or the
  // 0 unit that ends an empty text, and writing there changes that unit. Check the index before you write.
  //
  // Example: the units of a text, ended by 0, for a host function
  //   const UniChar* units = &text.AnsiCharAtIndex(1);
  UniChar& AnsiCharAtIndex(std::int32_t index);

 private:
  typedef std::basic_string<UniChar, UnitTraits> Units;

  friend int32 StrToIntDef(eu16string text, int32 defaultValue);

  Units units_;
};
