// The names of unfinished files, which tell whose they are.
#pragma once

#include <string>

namespace brvhost {

// A name that this process has not used yet.
//
//   .brvhost-<machine>-<boot>-<process>-<start>-<number>
//
// <machine> and <boot> are digests, of 16 hexadecimal digits each, of what tells the machine from others and its start
// from others; <process> is the process's id; <start> is when it started, by which another with the same id is told
// from it (0 where that is not known); <number> counts the process's files.
std::string TemporaryName();

// Removes the unfinished files in a folder whose owners are dead: those of this machine whose process is gone, and that
// nobody has locked. A file that cannot be removed stays.
void RemoveAbandonedFiles(const std::string& folder);

}  // namespace brvhost
