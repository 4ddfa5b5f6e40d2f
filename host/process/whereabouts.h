// Where in an extension a process is, so that others can tell when it has crashed.
#pragma once

#include <cstddef>
#include <string>

#include "host/process/sharedarray.h"

namespace brvhost {

// What the process runs, and the host function that this has called; both may be empty. In memory that an extension may
// garble.
struct Whereabouts {
  static constexpr std::size_t kSize = 48;

  char running[kSize];
  char hostCall[kSize];
};

using SharedWhereabouts = SharedArray<Whereabouts>;

// From now on this process writes where it is to `place`, which stays.
void ReportWhereaboutsTo(Whereabouts& place);

// " in BrevixExtensionInvoke", " in BX_LoadTGF, called in BrevixExtensionInvoke", or nothing.
std::string Describe(const Whereabouts& place);

// As long as it lives, the process runs what `name` says of an extension.
class InExtension {
 public:
  explicit InExtension(const char* name);
  ~InExtension();
  InExtension(const InExtension&) = delete;
  InExtension& operator=(const InExtension&) = delete;
};

// As long as it lives, the process is in the host function of that name.
class InHostCall {
 public:
  explicit InHostCall(const char* name);
  ~InHostCall();
  InHostCall(const InHostCall&) = delete;
  InHostCall& operator=(const InHostCall&) = delete;
};

}  // namespace brvhost
