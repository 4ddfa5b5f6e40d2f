#include "host/process/whereabouts.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace brvhost {
namespace {

Whereabouts ownPlace;
Whereabouts* current = &ownPlace;

void Copy(const char* name, char (&to)[Whereabouts::kSize]) {
  const std::size_t length = std::min(std::strlen(name), Whereabouts::kSize - 1);
  std::memcpy(to, name, length);
  to[length] = '\0';
}

std::string_view TextOf(const char (&text)[Whereabouts::kSize]) { return {text, strnlen(text, Whereabouts::kSize)}; }

}  // namespace

void ReportWhereaboutsTo(Whereabouts& place) {
  current = &place;
  place = {};
}

std::string Describe(const Whereabouts& place) {
  const std::string_view running = TextOf(place.running);
  const std::string_view hostCall = TextOf(place.hostCall);
  if (running.empty()) return "";
  std::string text(" in ");
  if (!hostCall.empty()) text.append(hostCall).append(", called in ");
  return text.append(running);
}

InExtension::InExtension(const char* name) { Copy(name, current->running); }

InExtension::~InExtension() { current->running[0] = '\0'; }

InHostCall::InHostCall(const char* name) { Copy(name, current->hostCall); }

InHostCall::~InHostCall() { current->hostCall[0] = '\0'; }

}  // namespace brvhost
