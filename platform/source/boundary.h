// The boundary of the platform. Its calls are C functions, so no exception may leave them.
#pragma once

namespace brvplatform {

// Returns the result of the body, or null, 0 or false if it throws because memory runs out or a file system fails. The
// body of every exported call that can throw is passed to this.
template <class Body>
auto OrNothing(Body body) noexcept -> decltype(body()) {
  using Answer = decltype(body());
  try {
    return body();
  } catch (...) {
    return Answer();
  }
}

}  // namespace brvplatform
