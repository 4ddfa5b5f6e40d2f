// Alerts, as extensions find them by name: either a text, or the ID of one in the extension's own bundle.
#include "BrvEDK/Source/brevixpdk.h"
#include "BrvEDK/Source/integerclasses.h"
#include "host/services/serve.h"
#include "host/text/utf8.h"

namespace {

using brvhost::Serve;
using brvhost::Session;

// Shows what `textOf` makes of the text, or the text of the ID where the text is null.
template <class TextOf>
short16 ShowAlert(int kind, int32 stringID, const void* text, const TextOf& textOf,
                  const char* name = __builtin_FUNCTION()) {
  const auto show = [&](Session& session) {
    if (text == nullptr) return session.AlertWithID(ZeroExtend16(kind), stringID);
    return session.Alert(ZeroExtend16(kind), textOf(text));
  };
  return Serve(0, show, name);
}

}  // namespace

extern "C" {

short16 BX_AlertMessage(void*, ushort16 kind, int32 stringID, const void* text, BrvVersion) {
  return ShowAlert(kind, stringID, text,
                   [](const void* bytes) { return brvhost::Utf8FromApplicationText(static_cast<const char*>(bytes)); });
}

short16 BX_AlertMessage_UTF16(void*, ushort16 kind, int32 stringID, const void* text, BrvVersion) {
  return ShowAlert(kind, stringID, text,
                   [](const void* units) { return brvhost::Utf8FromUnits(static_cast<const UniChar*>(units)); });
}

}  // extern "C"
