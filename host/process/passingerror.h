// Errors of the system that may be gone the next time.
#pragma once

#include <cerrno>
#include <initializer_list>

namespace brvhost {

// Whether the error is for lack of something that others have taken, or of an answer: nothing is wrong with what was
// asked for.
inline bool IsPassing(int error) {
  for (const int passing : {EAGAIN, EBUSY, EDQUOT, EINTR, EIO, EMFILE, ENFILE, ENOBUFS, ENOLCK, ENOMEM, ENOSPC, ESTALE,
                            ETIMEDOUT, ETXTBSY}) {
    if (error == passing) return true;
  }
  return false;
}

}  // namespace brvhost
