// Frames, layers, edits, progress and the selection, as extensions find them by name. Without an open session they
// answer as a host that can do nothing. An extension may leave anything above bit 15 of a 16-bit argument.
#include "BrvEDK/Source/hosttypes.h"
#include "host/services/session.h"

namespace {

using brvhost::OpenDocument;
using brvhost::Session;

int Signed16(int value) { return static_cast<std::int16_t>(value); }

OpenDocument* Document() {
  Session* const session = Session::Current();
  return session == nullptr ? nullptr : &session->Document();
}

}  // namespace

extern "C" {

BRV_EXPORT int BX_IsMachO(BrvVersion) { return 1; }

BRV_EXPORT EXTGF2005a* BX_LoadTGF(int, int staff, int measure, int layer, int, BrvVersion) {
  OpenDocument* const document = Document();
  return document == nullptr ? nullptr : document->LoadFrame(Signed16(staff), Signed16(measure), Signed16(layer));
}

BRV_EXPORT int BX_SaveTGF(const EXTGF2005a* frame, BrvVersion) {
  OpenDocument* const document = Document();
  return document != nullptr && document->SaveFrame(frame);
}

BRV_EXPORT int BX_FreeTGF(const EXTGF2005a* frame, BrvVersion) {
  OpenDocument* const document = Document();
  return document != nullptr && document->FreeFrame(frame);
}

BRV_EXPORT int BX_GetMaxLayers(BrvVersion) {
  const OpenDocument* const document = Document();
  return document == nullptr ? brvhost::kFewestLayers : document->GetScore().layers;
}

BRV_EXPORT int BX_GetShowLayer(int layer, BrvVersion) {
  const Session* const session = Session::Current();
  return session != nullptr && session->IsLayerShown(Signed16(layer));
}

BRV_EXPORT int BX_StartBrevixEdit(const void*, BrvVersion) {
  OpenDocument* const document = Document();
  if (document == nullptr) return 0;
  document->StartEdit();
  return 1;
}

BRV_EXPORT int BX_StartBrevixEdit_UTF16(const void* name, BrvVersion version) {
  return BX_StartBrevixEdit(name, version);
}

BRV_EXPORT int BX_EndBrevixEdit(BrvVersion) {
  OpenDocument* const document = Document();
  return document != nullptr && document->EndEdit();
}

BRV_EXPORT int BX_CancelBrevixEdit(BrvVersion) {
  OpenDocument* const document = Document();
  return document != nullptr && document->CancelEdit();
}

BRV_EXPORT void* BX_StartMassEdit(const void*, int count, BrvVersion) {
  Session* const session = Session::Current();
  return session == nullptr ? nullptr : session->StartProgress(count);
}

BRV_EXPORT int BX_MassEditProgress(void* handle, int increment, int, int, int, BrvVersion) {
  Session* const session = Session::Current();
  return session != nullptr && session->AddProgress(handle, Signed16(increment));
}

BRV_EXPORT void BX_EndMassEdit(void* handle, int, BrvVersion) {
  if (Session* const session = Session::Current()) session->EndProgress(handle);
}

// There is one selection, and each record that is asked for gets it.
BRV_EXPORT int BX_GetCurERegions(EREGION* first, EREGION* second, EREGION* third, BrvVersion) {
  const Session* const session = Session::Current();
  if (session == nullptr || !session->region) return 0;
  for (EREGION* const record : {first, second, third}) {
    if (record != nullptr) *record = *session->region;
  }
  return 1;
}

}  // extern "C"
