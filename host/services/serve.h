// What stands between the functions that extensions call, which are C, and the host behind them.
#pragma once

#include <exception>

#include "host/services/session.h"

namespace brvhost {

// Answers what `work` answers of the open session: `failure` where there is no session, and where anything is thrown.
// No exception may pass through an extension, which need not know of any: the session keeps it for the host.
template <class Answer, class Work>
Answer Serve(Answer failure, const Work& work) noexcept {
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
