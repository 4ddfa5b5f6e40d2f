#include <fmt/format.h>

#include <algorithm>

#include "host/batch/exitstatus.h"
#include "host/batch/processors.h"
#include "host/commands/commands.h"
#include "host/files/scorefile.h"
#include "host/text/inputerror.h"
#include "host/text/streams.h"

namespace brvhost {
namespace {

std::string StavesOf(const ScorePart& part) {
  const int last = part.firstStaff + part.staves - 1;
  return part.staves == 1 ? fmt::format("staff {}", last) : fmt::format("staves {}-{}", part.firstStaff, last);
}

// A name may have line breaks, and anything else that would garble the screen.
std::string OnOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; }, ' ');
  return text;
}

void Print(const ScoreFile& file) {
  const Score& score = file.GetScore();
  const auto hidden = std::ranges::count_if(score.entries, &ScoreEntry::hidden);
  const auto rests = std::ranges::count_if(score.entries, &ScoreEntry::isRest);
  Say(stdout, "{}\n", file.Path());
  Say(stdout, "  parts     {}\n", score.parts.size());
  for (const ScorePart& part : score.parts) {
    const std::string name = part.names.name.empty() ? "" : "  " + part.names.name;
    Say(stdout, "            {}\n", OnOneLine(part.id + "  " + StavesOf(part) + name));
  }
  Say(stdout, "  staves    {}\n  measures  {}\n  layers    {}\n", score.staves, score.measures, score.layers);
  Say(stdout, "  entries   {}, {} of them rests\n", score.entries.size(), rests);
  Say(stdout, "  notes     {}\n", score.notes.size() - static_cast<std::size_t>(rests));
  Say(stdout, "  hidden    {} entries without ledger lines\n", hidden);
}

}  // namespace

int ShowInfo(const Options& options) {
  int status = kDone;
  for (const std::string& path : options.scores) {
    try {
      const ScoreFile file(path, options.maxSize, Processors());
      Print(file);
      for (const ScoreWarning& warning : file.GetScore().warnings) {
        Say(stderr, "brvhost: {}\n", Located(path, {warning.line, warning.column}, "warning: " + warning.text));
      }
    } catch (const InputError& error) {
      Say(stderr, "brvhost: {}\n", Located(path, error.place, error.what()));
      status = kBadInput;
    } catch (const std::bad_alloc&) {
      Say(stderr, "brvhost: {}: there is not enough memory for this score\n", path);
      status = std::max<int>(status, kFailed);
    }
  }
  return status;
}

}  // namespace brvhost
