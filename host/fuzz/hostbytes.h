// The bytes of frames and entries that belong to the host: an extension gives them back as it got them.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "BrvEDK/Source/hostrecords.h"
#include "host/calls/interception.h"

namespace brvhost {

// Fills these bytes in each frame that an extension loads, and looks at them when it saves or frees the frame.
class HostBytes final : public Interceptor {
 public:
  // Throws std::runtime_error where calls cannot be heard.
  HostBytes() : interception_(*this) {}

  // For a round, which begins.
  void Start();
  // What the extension has overwritten since, as a clause about it, or nothing.
  const std::string& Wrong() const { return wrong_; }

  std::optional<Register> Before(const InterceptedCall& call) override;
  void After(const InterceptedCall& call, Register& result) override;

 private:
  // The entries of a frame as the host gave them out: an extension may change the record.
  struct Given {
    EXENTRY* entries;
    int count;
  };

  void Look(const EXTGF2005a& frame, const Given& given);

  std::unordered_map<const EXTGF2005a*, Given> loaded_;
  std::string wrong_;
  const Interception interception_;
};

}  // namespace brvhost
