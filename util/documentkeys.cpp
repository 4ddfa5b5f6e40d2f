#include "brevixpdk.h"
#include "documentrecords.h"
#include "integerclasses.h"
#include "recordtag.h"
#include "transposition.h"

namespace {

bool Load(uint32 tag, short16 recordNumber, void* record, std::int32_t size) {
  EDataKey key = {static_cast<std::uint16_t>(recordNumber), 0};
  return BX_LoadEData(tag, &key, record, &size, kBrvVersion) != 0;
}

}  // namespace

short16 BXUtilGetKeySig(short16 measure, short* keySignature) {
  EDTMeasureSpec2014 record = {};
  if (!Load(RecordTag("SOMS"), measure, &record, sizeof(record))) return 0;
  *keySignature = record.keySignature;
  return 1;
}

short16 BXUtilGetTimeSig(short16 measure, tTimeSig* timeSignature) {
  EDTMeasureSpec2014 record = {};
  if (!Load(RecordTag("SOMS"), measure, &record, sizeof(record))) return 0;
  *timeSignature = {record.beats, record.beatUnit};
  return 1;
}

short16 BXUtilGetStaffTrans(short16 staff, short* code) {
  EDTStaffSpec2014 record = {};
  if (!Load(RecordTag("SOIS"), staff, &record, sizeof(record))) return 0;
  *code = record.transposition;
  return 1;
}
