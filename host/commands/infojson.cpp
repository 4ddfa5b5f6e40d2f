#include "host/commands/infojson.h"

#include <algorithm>
#include <cstdint>

#include "host/batch/regionjson.h"
#include "host/score/fraction.h"
#include "host/score/mixedchords.h"
#include "host/score/score.h"
#include "host/score/summary.h"
#include "host/text/inputerror.h"
#include "host/text/json.h"

namespace brvhost {
namespace {

std::uint64_t Positive(int number) { return static_cast<std::uint64_t>(number); }

std::string JsonOfPart(const ScorePart& part) {
  return JsonObject()
      .AddText("id", part.id)
      .AddText("name", part.names.name)
      .AddText("abbreviation", part.names.abbreviation)
      .AddNumber("firstStaff", Positive(part.firstStaff))
      .AddNumber("lastStaff", Positive(part.firstStaff + part.staves - 1))
      .Text();
}

std::string JsonOfLayers(const LayersOfStaves& layers) {
  return JsonObject()
      .AddJson("staves", JsonArrayOf(layers.staves, JsonOfRun))
      .AddJson("voices", JsonArrayOfTexts(layers.voices))
      .Text();
}

// Layers count from 1 here, as on the command line.
std::string JsonOfChord(const MixedChord& chord) {
  return JsonObject()
      .AddNumber("staff", Positive(chord.staff))
      .AddNumber("measure", Positive(chord.measure))
      .AddNumber("layer", Positive(chord.layer + 1))
      .AddText("position", TextOf({chord.position, kTicksPerQuarter}))
      .Text();
}

std::string JsonOfCounts(const Score& score) {
  const EntryCounts counts = CountsOf(score);
  const auto hidden = std::ranges::count_if(score.entries, &ScoreEntry::hidden);
  return JsonObject()
      .AddNumber("entries", counts.All())
      .AddNumber("notes", counts.notes)
      .AddNumber("chords", counts.chords)
      .AddNumber("rests", counts.rests)
      .AddNumber("hidden", static_cast<std::uint64_t>(hidden))
      .Text();
}

}  // namespace

std::string JsonOf(const ScoreFile& file) {
  const Score& score = file.GetScore();
  JsonObject object;
  object.AddPath("score", file.Path());
  object.AddTextOrNull("member", file.Member());
  object.AddText("status", "read").AddFlag("retry", false);
  object.AddJson("parts", JsonArrayOf(score.parts, JsonOfPart));
  object.AddNumber("staves", Positive(score.staves)).AddNumber("measures", Positive(score.measures));
  object.AddJson("layers", JsonArrayOf(LayersOf(score), JsonOfLayers));
  object.AddJson("counts", JsonOfCounts(score));
  object.AddJson("mixedChords", JsonArrayOf(MixedChordsOf(score), JsonOfChord));
  object.AddJson("warnings", JsonArrayOf(score.warnings, [&file](const ScoreWarning& warning) {
                   return JsonOf(Located(file.Path(), {warning.line, warning.column}, "warning: " + warning.text));
                 }));
  return object.AddNull("error").Text();
}

std::string JsonOfUnread(const std::string& path, const char* status, bool retry, const std::string& error) {
  JsonObject object;
  object.AddPath("score", path).AddText("status", status).AddFlag("retry", retry);
  return object.AddText("error", error).Text();
}

}  // namespace brvhost
