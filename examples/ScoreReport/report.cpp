#include "report.h"

#include <BrvEDK/brevixpdk.h>
#include <BrvEDK/documentspecs.h>
#include <BrvEDK/pitch.h>
#include <BrvEDK/portable.h>
#include <BrvEDK/stringids.h>
#include <BrvEDK/transposition.h>

#include <array>

#include "names.h"

namespace {

constexpr int kHeadingTable = 20200;

std::u16string Text(int id) {
  std::array<UniChar, 256> buffer;
  PlugIn_GetStringResource(id, buffer.data(), buffer.size());
  return reinterpret_cast<const char16_t*>(buffer.data());
}

std::u16string Widened(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

// A column, followed by at least two blanks.
std::u16string Column(std::u16string text, std::size_t width) {
  text.resize(text.size() < width ? width : text.size(), u' ');
  return text + u"  ";
}
std::u16string Column(const std::string& text, std::size_t width) { return Column(Widened(text), width); }

std::u16string NameOfStaff(int staff) {
  std::array<UniChar, 1024> buffer = {};
  const int length = BXUtilGetStaffName(staff, 0, buffer.data(), buffer.size() - 1);
  return {reinterpret_cast<const char16_t*>(buffer.data()), static_cast<std::size_t>(length)};
}

int EmptyMeasures(const EREGION& region, int staff) {
  int count = 0;
  for (int measure = region.startMeasure; measure <= region.endMeasure; ++measure) {
    count += BXUtilIsEmptyMeasure(region.regionScope, staff, measure);
  }
  return count;
}

std::u16string StaffLine(const EREGION& region, int staff) {
  short key = 0;
  short code = 0;
  BXUtilGetKeySig(region.startMeasure, &key);
  BXUtilGetStaffTrans(staff, &code);
  if (key >= kNonStandardKey) key = 0;  // it is not made of fifths, and cannot be too far from C
  tInterval interval;
  BXUtilStaffTransToInterval(code, key, &interval);  // from sounding to written pitch
  BXUtilInvertInterval(&interval);
  tDiaPitch middleC = {0, 0};
  BXUtilStaffToAbsTCD(&middleC, code, key);
  return Column(std::to_string(staff), 5) + Column(NameOfStaff(staff), 20) + Column(NameOf(interval), 20) +
         Column(NameOf(middleC), 17) + Column(std::to_string(BXUtilCountIUSlots(staff)), 5) +
         Widened(std::to_string(EmptyMeasures(region, staff))) + u"\n";
}

struct Signature {
  short key = 0;
  tTimeSig time = {0, 0};

  bool operator==(const Signature& other) const {
    return key == other.key && time.beats == other.time.beats && time.beatUnit == other.time.beatUnit;
  }
};

Signature SignatureOf(int measure) {
  Signature signature;
  BXUtilGetKeySig(measure, &signature.key);
  BXUtilGetTimeSig(measure, &signature.time);
  return signature;
}

std::u16string MeasureLine(int measure, const Signature& signature) {
  const std::string time = signature.time.beats == 0
                               ? "none"
                               : std::to_string(signature.time.beats) + "/" + std::to_string(signature.time.beatUnit);
  return Column(std::to_string(measure), 7) + Column(NameOfKey(signature.key), 14) + Widened(time) + u"\n";
}

}  // namespace

std::u16string ReportOn(const EREGION& region) {
  BXUtilSetPitchFormatting(kPitchesAsInDocument);
  std::u16string report = Text(StringID(kHeadingTable, 1)) + u"\n";
  for (int staff = region.startStaff; staff <= region.endStaff; ++staff) report += StaffLine(region, staff);
  report += u"\n" + Text(StringID(kHeadingTable, 2)) + u"\n";
  Signature last;
  for (int measure = region.startMeasure; measure <= region.endMeasure; ++measure) {
    const Signature signature = SignatureOf(measure);
    if (measure == region.startMeasure || !(signature == last)) report += MeasureLine(measure, signature);
    last = signature;
  }
  return report;
}
