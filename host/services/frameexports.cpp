// Frames, layers, edits, progress and the selection, as extensions find them by name. Without an open session they
// return what a host does that can do nothing. An extension may leave anything above bit 15 of a 16-bit argument.
#include "BrvEDK/Source/brevixpdk.h"
#include "BrvEDK/Source/integerclasses.h"
#include "host/score/score.h"
#include "host/services/serve.h"

namespace {

using brvhost::Serve;
using brvhost::Session;

HostResult StartEdit(const char* name = __builtin_FUNCTION()) {
  const auto start = [](Session& session) {
    session.Document().StartEdit();
    return true;
  };
  return Serve<HostResult>(0, start, name);
}

}  // namespace

extern "C" {

short16 BX_IsMachO(BrvVersion) { return 1; }

EXTGF2005a* BX_LoadTGF(ushort16, short16 staff, short16 measure, short16 layer, short16, BrvVersion) {
  return Serve<EXTGF2005a*>(nullptr, [&](Session& session) {
    return session.Document().LoadFrame(SignExtend16(staff), SignExtend16(measure), SignExtend16(layer));
  });
}

short16 BX_SaveTGF(EXTGF2005a* frame, BrvVersion) {
  return Serve(0, [&](Session& session) { return session.Document().SaveFrame(frame); });
}

HostResult BX_FreeTGF(EXTGF2005a* frame, BrvVersion) {
  return Serve<HostResult>(0, [&](Session& session) { return session.Document().FreeFrame(frame); });
}

short16 BX_GetMaxLayers(BrvVersion) {
  return Serve(brvhost::kMinLayers, [](Session& session) { return session.Document().GetScore().layers; });
}

short16 BX_GetShowLayer(short16 layer, BrvVersion) {
  return Serve(0, [&](Session& session) { return session.IsLayerShown(SignExtend16(layer)); });
}

HostResult BX_StartBrevixEdit(void*, BrvVersion) { return StartEdit(); }

HostResult BX_StartBrevixEdit_UTF16(void*, BrvVersion) { return StartEdit(); }

short16 BX_EndBrevixEdit(BrvVersion) {
  return Serve(0, [](Session& session) { return session.Document().EndEdit(); });
}

void BX_CancelBrevixEdit(BrvVersion) {
  Serve(0, [](Session& session) { return session.Document().CancelEdit(); });
}

void* BX_StartMassEdit(void*, int32 count, BrvVersion) {
  return Serve<void*>(nullptr, [&](Session& session) { return session.StartProgress(count); });
}

short16 BX_MassEditProgress(void* handle, short16 increment, short16, short16, short16, BrvVersion) {
  return Serve(0, [&](Session& session) { return session.AddProgress(handle, SignExtend16(increment)); });
}

HostResult BX_EndMassEdit(void* handle, short16, BrvVersion) {
  return Serve<HostResult>(0, [&](Session& session) { return session.EndProgress(handle); });
}

// There is one selection, and each record that is asked for gets it.
short16 BX_GetCurERegions(EREGION* first, EREGION* second, EREGION* third, BrvVersion) {
  return Serve(0, [&](const Session& session) {
    if (!session.Selection()) return false;
    for (EREGION* const record : {first, second, third}) {
      if (record != nullptr) *record = session.Selection()->region;
    }
    return true;
  });
}

}  // extern "C"
