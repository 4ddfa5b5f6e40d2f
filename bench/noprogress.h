// Compiles the command without its progress reports, to see what they cost.
#pragma once

#include "progress.h"

inline void NoProgressStart(tProgressReport*, ushort16) {}
inline short16 NoProgressUpdate(tProgressReport*, ushort16) { return 1; }
inline void NoProgressEnd(tProgressReport*, short16) {}

#define BXUtilPRStart NoProgressStart
#define BXUtilPRUpdate NoProgressUpdate
#define BXUtilPREnd NoProgressEnd
#define DoShowLegerLines DoShowLegerLinesSilently
