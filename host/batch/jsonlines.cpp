#include "host/batch/jsonlines.h"

#include <utility>

#include "host/score/changes.h"
#include "host/score/fraction.h"
#include "host/score/score.h"
#include "host/text/json.h"

namespace brvhost {
namespace {

// Layers count from 1 here, as on the command line.
std::string JsonOfChange(const EntryChange& change) {
  return JsonObject()
      .AddNumber("line", change.line)
      .AddNumber("staff", change.staff)
      .AddNumber("measure", change.measure)
      .AddNumber("layer", change.layer + 1)
      .AddText("position", TextOf({change.position, kTicksPerQuarter}))
      .AddFlag("hidden", change.isHidden != 0)
      .Text();
}

std::string JsonOfCounts(const DoneMessage& done) {
  return JsonObject()
      .AddNumber("entries", done.Entries())
      .AddNumber("notes", done.notes)
      .AddNumber("chords", done.chords)
      .AddNumber("rests", done.rests)
      .AddNumber("changed", done.changedEntries)
      .AddNumber("hidden", done.hiddenEntries)
      .Text();
}

// What is known before the changes are.
JsonObject BeginningOf(const Job& job, const Findings& findings) {
  JsonObject object;
  object.AddPath("score", job.score).AddTextOrNull("member", findings.member);
  return object.AddPathOrNull("target", job.target.value_or(""));
}

JsonObject EndOf(const Findings& findings, const ScoreResult& result) {
  JsonObject object;
  object.AddText("status", NameOf(result.outcome)).AddFlag("retry", result.retry);
  object.AddJson("counts", result.done ? JsonOfCounts(*result.done) : "null");
  object.AddJson("region", findings.region.empty() ? "null" : findings.region);
  object.AddJson("warnings", JsonArrayOfTexts(findings.warnings));
  object.AddJson("missingFunctions", JsonArrayOfTexts(findings.missingFunctions));
  return object.AddTextOrNull("error", result.error);
}

}  // namespace

void JsonLines::List(const Job& job, const Findings& findings) {
  std::string piece;
  if (open_ == nullptr) piece = "{" + BeginningOf(job, findings).Members() + ",\"changes\":[";
  bool isFirst = open_ == nullptr;
  for (const EntryChange& change : ChangesFrom(findings.changes)) {
    if (!std::exchange(isFirst, false)) piece += ',';
    piece += JsonOfChange(change);
  }
  terminal_.PrintOutput(piece);
  open_ = &job;
}

void JsonLines::End(const Job& job, const Findings& findings, const ScoreResult& result) {
  const std::string end = EndOf(findings, result).Members() + "}\n";
  if (open_ == &job) {
    open_ = nullptr;
    return terminal_.PrintOutput("]," + end + std::exchange(held_, ""));
  }
  const std::string line =
      "{" + BeginningOf(job, findings).Members() + (listsChanges_ ? ",\"changes\":[]," : ",") + end;
  if (open_ == nullptr) return terminal_.PrintOutput(line);
  held_ += line;
}

}  // namespace brvhost
