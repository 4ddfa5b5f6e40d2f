#include "documentrecords.h"
#include "loadrecord.h"
#include "transposition.h"

short16 BXUtilGetKeySig(short16 measure, short* keySignature) {
  EDTMeasureSpec2014 record = {};
  if (LoadRecord(kMeasureSpecTag, measure, &record) == 0) return 0;
  *keySignature = record.keySignature;
  return 1;
}

short16 BXUtilGetTimeSig(short16 measure, tTimeSig* timeSignature) {
  EDTMeasureSpec2014 record = {};
  if (LoadRecord(kMeasureSpecTag, measure, &record) == 0) return 0;
  *timeSignature = {record.beats, record.beatUnit};
  return 1;
}

short16 BXUtilGetStaffTrans(short16 staff, short* code) {
  EDTStaffSpec2014 record = {};
  if (LoadRecord(kStaffSpecTag, staff, &record) == 0) return 0;
  *code = record.transposition;
  return 1;
}
