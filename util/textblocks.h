// Text blocks of the document and their raw text.
//
// Raw text is UTF-16 with formatting tags, each a caret, a word and an argument in parentheses, as in
// "^font(Times)Clarinet in B^flat()".
#pragma once

#include "documentrecords.h"
#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// Loads a text block into the caller's record, which is cleared first. Returns the host's result, non-zero for success.
BRV_EXPORT short16 BXUtilGetTextBlock(short16 block, EDTTextBlock25_4* textBlock);

// Returns a copy of a raw text, ended by a 0 unit, or null if the host has none with this number or memory runs out.
// The caller frees it with BXUtilFreeRawText.
BRV_EXPORT UniChar* BXUtilLoadRawTextUTF16(short16 number);

// Frees a text from BXUtilLoadRawTextUTF16; null is allowed.
BRV_EXPORT void BXUtilFreeRawText(UniChar* text);

// Removes the formatting tags of a text, in place: from each caret to the first closing parenthesis after the next
// opening one, with everything between. A flat sign, "^flat()", becomes the letter b.
//
// Every caret must open a complete tag: at one that does not, the function never returns. Text of the host's own is
// always complete. For text from anywhere else, such as what a user typed or the beginning of a longer text, first
// check that each caret is followed by "(" and that by ")", or replace the carets.
//
// Examples: "A^font(Times)B" becomes "AB", "x^flat()y" becomes "xby", and "a^f(1(2))b" becomes "a)b".
BRV_EXPORT void BXUtilStripTextTags(UniChar* text);

}  // extern "C"
