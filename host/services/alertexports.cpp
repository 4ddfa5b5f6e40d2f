// Alerts, as extensions find them by name: either a text, or the ID of one in the extension's own bundle.
#include "BrvEDK/Source/brevixpdk.h"
#include "host/services/serve.h"
#include "host/text/utf8.h"

namespace {

using brvhost::Serve;
using brvhost::Session;

int Kind(int value) { return value & 0xFFFF; }

}  // namespace

extern "C" {

short16 BX_AlertMessage(void*, ushort16 kind, int32 stringID, const void* text, BrvVersion) {
  return Serve(0, [&](Session& session) {
    if (text == nullptr) return session.AlertWithID(Kind(kind), stringID);
    return session.Alert(Kind(kind), brvhost::Utf8FromApplicationText(static_cast<const char*>(text)));
  });
}

short16 BX_AlertMessage_UTF16(void*, ushort16 kind, int32 stringID, const void* text, BrvVersion) {
  return Serve(0, [&](Session& session) {
    if (text == nullptr) return session.AlertWithID(Kind(kind), stringID);
    return session.Alert(Kind(kind), brvhost::Utf8FromUnits(static_cast<const UniChar*>(text)));
  });
}

}  // extern "C"
