// Whether the report has what the score has.
#include <BrvEDK/documentrecords.h>
#include <BrvEDK/testextension.h>
#include <BrvEDK/testscore.h>

#include <cstdio>
#include <string>

namespace {

// A clarinet with one empty measure in 3/4, as the application would have it.
void Fill(TestScore& score) {
  EDTMeasureSpec2014 measure = {};
  measure.beats = 3;
  measure.beatUnit = 4;
  score.PutRecord(kMeasureSpecTag, 1, measure);
  EDTStaffSpec2014 staff = {};
  staff.transposition = 0x0042;
  score.PutRecord(kStaffSpecTag, 1, staff);
  score.NameStaff(1, u"Clarinet");
  score.Put({.staff = 1, .measure = 1}, {RestAt(0)});
}

bool Contains(const std::u16string& text, const char16_t* part) { return text.find(part) != std::u16string::npos; }

}  // namespace

int main(int, char** arguments) {
  RecordingHost host;
  TestScore score(host);
  Fill(score);
  std::u16string report;
  host.On("BX_AlertMessage_UTF16", [&report](const HostCall& call) {
    report = call.Pointer<char16_t>(3);
    return 0;
  });

  const TestExtension extension(arguments[1]);
  EREGION region = score.Region();
  extension.Invoke(0, &region);
  if (Contains(report, u"Clarinet") && Contains(report, u"major 2nd down") && Contains(report, u"3/4")) return 0;
  std::fputs("the report lacks the clarinet, its transposition or the meter\n", stderr);
  return 1;
}
