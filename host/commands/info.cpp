#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "host/commands/commands.h"
#include "host/commands/infojson.h"
#include "host/commands/infolines.h"
#include "host/commands/scorelist.h"
#include "host/files/inputfile.h"
#include "host/files/scorefile.h"
#include "host/files/standardstreams.h"
#include "host/process/exitstatus.h"
#include "host/process/memorylimit.h"
#include "host/process/processors.h"
#include "host/process/streams.h"
#include "host/score/fraction.h"
#include "host/score/mixedchords.h"
#include "host/score/score.h"
#include "host/score/summary.h"
#include "host/text/inputerror.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

std::string StavesOf(const ScorePart& part) {
  const int last = part.firstStaff + part.staves - 1;
  return part.staves == 1 ? fmt::format("staff {}", last) : fmt::format("staves {}-{}", part.firstStaff, last);
}

void Complain(const std::string& text) { Print(stderr, "brvhost: {}\n", Printable(text)); }

// Layers count from 1 here, as on the command line.
void PrintMixedChords(const Score& score) {
  const std::vector<MixedChord> chords = MixedChordsOf(score);
  Print(stdout, "  mixed     {} chords of which only some notes are hidden\n", chords.size());
  for (const MixedChord& chord : chords) {
    Print(stdout, "            staff {}, measure {}, layer {}, position {}\n", chord.staff, chord.measure,
          chord.layer + 1, TextOf({chord.position, kTicksPerQuarter}));
  }
}

// Under one heading.
void PrintLines(const char* heading, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    Print(stdout, "  {:<9} {}\n", heading, Printable(line));
    heading = "";
  }
}

void PrintScore(const ScoreFile& file) {
  const Score& score = file.GetScore();
  const auto hidden = std::ranges::count_if(score.entries, &ScoreEntry::hidden);
  const EntryCounts counts = CountsOf(score);
  Print(stdout, "{}\n", Printable(file.Path()));
  Print(stdout, "  parts     {}\n", score.parts.size());
  for (const ScorePart& part : score.parts) {
    const std::string name = part.names.name.empty() ? "" : "  " + part.names.name;
    Print(stdout, "            {}\n", Printable(part.id + "  " + StavesOf(part) + name));
  }
  Print(stdout, "  staves    {}\n  measures  {}\n", score.staves, score.measures);
  PrintLines("printed", PrintedLines(score));
  PrintLines("layers", LayerLines(score));
  Print(stdout, "  entries   {}: {} notes, {} chords, {} rests\n", counts.All(), counts.notes, counts.chords,
        counts.rests);
  Print(stdout, "  hidden    {} entries\n", hidden);
  PrintMixedChords(score);
}

void PrintWarnings(const ScoreFile& file) {
  for (const ScoreWarning& warning : file.GetScore().warnings) {
    Complain(file.LocatedText({warning.line, warning.column}, "warning: " + warning.text));
  }
}

void ShowScore(const std::string& path, const Options& options) {
  const InputFile input(path);
  const int readers = Processors();
  const MemoryLimit limit(options.maxMemory.value_or(DefaultMemory(input.Size())), readers);
  limit.During([&] {
    const ScoreFile file(input, options.maxSize, readers);
    if (options.json) {
      Print(stdout, "{}\n", JsonOf(file));
    } else {
      PrintScore(file);
    }
    PrintWarnings(file);
  });
}

void Refuse(const std::string& path, const Options& options, const char* status, bool retry, const std::string& error) {
  Complain(error);
  if (options.json) Print(stdout, "{}\n", JsonOfUnread(path, status, retry, error));
}

}  // namespace

int ShowInfo(const Options& options) {
  int status = kDone;
  for (const ListedScore& score : ScoresOf(options)) {
    const std::string& path = score.path;
    try {
      ShowScore(path, options);
    } catch (const InputError& error) {
      Refuse(path, options, "badInput", false, Located(InputName(path), error.place, error.what()));
      status = kBadInput;
    } catch (const MemoryError& error) {
      Refuse(path, options, "failed", error.mayPass, InputName(path) + ": " + error.what());
      status = std::max<int>(status, kFailed);
    }
  }
  return status;
}

}  // namespace brvhost
