// Which build of the program this is.
#pragma once

namespace brvhost {

// "1.0.0" of a release; "1.0.0+20.g50600e1" of another commit, with ".dirty" where files differ from it.
extern const char* const kVersion;

// The day of the release whose version that is, as in 2026-11-22.
extern const char* const kReleaseDate;

}  // namespace brvhost
