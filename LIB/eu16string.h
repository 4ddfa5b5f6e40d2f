// UTF-16 text that owns its units, and the numbers in it.
#pragma once

#include <cstdint>
#include <string>

#include "hostrecords.h"
#include "hosttypes.h"
#include "unittraits.h"

class eu16string;

// Returns the number that the text begins with, after blanks, as read by CFStringGetIntValue, or 0 if it begins with
// none. Only an empty text gives defaultValue.
BRV_EXPORT int32 StrToIntDef(eu16string text, int32 defaultValue);

// Returns the number in decimal digits.
BRV_EXPORT eu16string IntToEu16Str(long value);

// A UTF-16 text that owns its units.
//
// Positions count from 1, in 16-bit units; a surrogate pair is two of them. Bounds are forgiving: an argument outside
// of the text is clipped or ignored, and is never an error. 8-bit text is in the application's encoding
// (GetApplicationTextEncoding, called at each conversion) unless a comment says UTF-8. If memory runs out,
// std::bad_alloc is thrown. [any-thread, one at a time for an object]
class BRV_EXPORT eu16string {
 public:
  // The text in the application's encoding, ended by a zero. Empty if the bytes are not text in it.
  eu16string(const char* text);
  // The text in UTF-8, ended by a zero. Empty if the bytes are not UTF-8.
  eu16string(const unsigned char* utf8Text);
  // The character of a code point: a surrogate pair from 0x10000 to 0x10FFFF, else the unit of its low 16 bits,
  // whatever it is. Empty if that unit is 0.
  eu16string(unsigned int codePoint);
  // A single character in the application's encoding. Empty for 0.
  eu16string(char character);

  // Copies, moves or ends a text. Not inline: the caller may have been compiled with another standard library, whose
  // string differs.
  eu16string(const eu16string&);
  eu16string(eu16string&&) noexcept;
  eu16string& operator=(const eu16string&);
  eu16string& operator=(eu16string&&) noexcept;
  virtual ~eu16string();

  // Sets text to this text in the application's encoding, with '?' for each character that the encoding lacks. A 0 unit
  // ends it.
  void GetStdString(std::string& text) const;

  // Returns the position of the first place where other is found in this text, or 0 if there is none. An empty other is
  // found at 1, but not in an empty text.
  int32 AnsiPos(const eu16string& other) const;

  // Removes count units from index on, or fewer if the text ends before. An index of 0 or after the end removes
  // nothing, nor does a count below 1. Returns this text.
  eu16string& AnsiDelete(std::uint32_t index, std::int32_t count);

  // Returns the count units from start on, or fewer if the text ends before. A start below 1 is taken as 1, with the
  // full count, unlike in AnsiDelete. The result is empty if start is after the end or count is below 1.
  eu16string AnsiSubString(std::int32_t start, std::int32_t count) const;

  // Cuts the text to its first length units. Never makes it longer. Returns this text.
  eu16string& AnsiSetLength(std::uint32_t length);

  // Returns the unit at index, or 32, a space, if there is none.
  UniChar AnsiCharAtIndex(std::int32_t index) const;

  // Returns the unit at index, to be read or written until the text changes. Outside of the text it is the first unit,
  // or the 0 unit that ends an empty text, and writing there changes that unit. Check the index before you write.
  //
  // Example: the units of a text, ended by 0, for a host function
  //   const UniChar* units = &text.AnsiCharAtIndex(1);
  UniChar& AnsiCharAtIndex(std::int32_t index);

 private:
  typedef std::basic_string<UniChar, UnitTraits> Units;

  friend int32 StrToIntDef(eu16string text, int32 defaultValue);

  Units units_;
};
