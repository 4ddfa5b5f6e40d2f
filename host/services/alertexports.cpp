// Alerts, as extensions find them by name: either a text, or the ID of one in the extension's own bundle.
#include "BrvEDK/Source/hosttypes.h"
#include "host/services/session.h"
#include "host/text/utf8.h"

namespace {

using brvhost::Session;

int Kind(int value) { return value & 0xFFFF; }

}  // namespace

extern "C" {

BRV_EXPORT int BX_AlertMessage(void*, int kind, int stringID, const char* text, BrvVersion) {
  Session* const session = Session::Current();
  if (session == nullptr) return 0;
  if (text == nullptr) return session->AlertWithID(Kind(kind), stringID);
  return session->Alert(Kind(kind), brvhost::Utf8FromApplicationText(text));
}

BRV_EXPORT int BX_AlertMessage_UTF16(void*, int kind, int stringID, const UniChar* text, BrvVersion) {
  Session* const session = Session::Current();
  if (session == nullptr) return 0;
  if (text == nullptr) return session->AlertWithID(Kind(kind), stringID);
  return session->Alert(Kind(kind), brvhost::Utf8FromUnits(text));
}

}  // extern "C"
