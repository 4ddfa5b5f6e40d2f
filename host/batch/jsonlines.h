// What became of each score, in JSON: one line for each, as it ends.
#pragma once

#include <string>
#include <string_view>

#include "host/batch/findings.h"
#include "host/batch/job.h"
#include "host/batch/scoreresult.h"
#include "host/process/terminal.h"

namespace brvhost {

// A line is printed in pieces where it has many changes. The lines of scores that end meanwhile come after it.
class JsonLines {
 public:
  // The terminal outlives this object.
  JsonLines(Terminal& terminal, bool listsChanges) : terminal_(terminal), listsChanges_(listsChanges) {}

  // Some of the changes in a score. All of them come before the changes in another, and before its result.
  void List(const Job& job, const Findings& findings);
  void End(const Job& job, const Findings& findings, const ScoreResult& result);

 private:
  Terminal& terminal_;
  const bool listsChanges_;
  const Job* open_ = nullptr;  // whose line has begun
  std::string held_;           // whole lines
};

}  // namespace brvhost
