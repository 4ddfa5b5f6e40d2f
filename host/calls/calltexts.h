// Calls between host and extension as text. The same calls make the same text in each run: it holds no address.
#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "host/bundle/entrypointlistener.h"
#include "host/calls/interception.h"

namespace brvhost {

class CallTexts {
 public:
  // "BX_GetShowLayer(layer: 0)".
  std::string TextOf(const InterceptedCall& call);
  // " = 1", with what the host has written to the arguments: " = 1, size: 80". After TextOf.
  std::string OutcomeOf(const InterceptedCall& call, Register result);

 private:
  // A frame as it was loaded.
  struct Frame {
    std::string place;  // "staff 1, measure 2, layer 0"
    bool isFreed = false;
  };

  std::string ArgumentText(const InterceptedCall& call, std::size_t index) const;
  std::string FrameText(const EXTGF2005a* frame) const;
  std::string PointerText(Register address) const;
  std::string ResultText(const InterceptedCall& call, Register result) const;
  // Remembers what is to be known of later arguments.
  void Learn(const InterceptedCall& call, Register result);

  std::map<const EXTGF2005a*, Frame> frames_;
  std::map<Register, std::size_t> handles_;  // that the host has returned, numbered from 1
  std::vector<std::string> shown_;           // the arguments of the last call
};

// "BrevixExtensionInvoke(context: null, itemIndex: 0, ...)", and " = 1" with what the extension has written.
std::string TextOfEntry(const char* entryPoint, std::span<const EntryPointArgument> arguments);
std::string OutcomeOfEntry(std::span<const EntryPointArgument> arguments, const EntryPointValue* result);

}  // namespace brvhost
