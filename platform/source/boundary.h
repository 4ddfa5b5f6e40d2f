// Where the platform is entered. Its calls are those of C: no exception may leave them.
#pragma once

namespace brvplatform {

// What the body answers; if it throws, since memory runs out or a file system fails, what stands for nothing: null, 0
// or false. Every exported call that can throw has its body in here.
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
