// The menu item in a host that is scripted here: chords_test BUNDLE.
#include <BrvEDK/testextension.h>
#include <BrvEDK/testscore.h>

#include <cstdio>
#include <vector>

namespace {

int failures = 0;

void Expect(bool holds, const char* fact) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", fact);
  ++failures;
}

EXENTRY ChordAt(std::int32_t position) {
  EXENTRY chord = NoteAt(position);
  chord.noteCount = 2;
  chord.notes[1].noteID = chord.notes[1].noteWord = 2;
  return chord;
}

bool IsHidden(const EXENTRY& entry) { return (entry.flags & kNoLegerLines) != 0; }

}  // namespace

int main(int, char** arguments) {
  RecordingHost host;
  TestScore score(host);
  score.Put({.staff = 1, .measure = 1}, {NoteAt(0), ChordAt(kQuarterNote), RestAt(2 * kQuarterNote)});
  score.Put({.staff = 1, .measure = 2}, {ChordAt(0), ChordAt(kQuarterNote)});
  EREGION region = score.Region();
  region.endPosition = 0;

  const TestExtension extension(arguments[1]);
  Expect(extension.Items().size() == 1, "there is one menu item");
  Expect(extension.Invoke(0, &region) != 0, "it reports a change");
  const std::vector<EXENTRY>& first = score.At({.staff = 1, .measure = 1});
  Expect(!IsHidden(first[0]) && IsHidden(first[1]) && !IsHidden(first[2]), "chords are hidden, and nothing else");
  const std::vector<EXENTRY>& second = score.At({.staff = 1, .measure = 2});
  Expect(IsHidden(second[0]) && !IsHidden(second[1]), "the region ends where its last position is");
  Expect(score.LoadedFrames() == 0, "each frame is freed");

  host.Forget();
  Expect(extension.Invoke(0, &region) == 0, "the second time nothing changes");
  Expect(host.Count("BX_AlertMessage") == 1, "then the user is told");
  return failures == 0 ? 0 : 1;
}
