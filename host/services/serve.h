// The step from the functions that extensions call, which are C, to the host's own.
#pragma once

#include <exception>

#include "host/process/whereabouts.h"
#include "host/services/session.h"

namespace brvhost {

// Returns what `work` returns for the open session, or `failure` where there is no session or anything is thrown. No
// exception may pass through an extension, which need not know of exceptions: the session keeps it for the host.
// `name` is the host function's own, that of the caller.
template <class Answer, class Work>
Answer Serve(Answer failure, const Work& work, const char* name = __builtin_FUNCTION()) noexcept {
  const InHostCall here(name);
  Session* const session = Session::Current();
  if (session == nullptr) return failure;
  try {
    return static_cast<Answer>(work(*session));
  } catch (...) {
    session->KeepFailure(std::current_exception());
    return failure;
  }
}

}  // namespace brvhost
