#include "host/batch/job.h"

#include <fmt/format.h>
#include <strings.h>

#include <cstddef>
#include <exception>

#include "BrvEDK/Source/hostrecords.h"
#include "host/batch/distantuser.h"
#include "host/files/inputfile.h"
#include "host/files/outputerror.h"
#include "host/files/target.h"
#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"
#include "host/process/memorylimit.h"
#include "host/services/document.h"
#include "host/services/session.h"
#include "host/text/inputerror.h"

namespace brvhost {
namespace {

constexpr std::size_t kMaxWarnings = 5;

void SendWarnings(const ScoreFile& file, const Channel& channel) {
  const auto& warnings = file.GetScore().warnings;
  for (std::size_t i = 0; i < warnings.size() && i < kMaxWarnings; ++i) {
    const ScoreWarning& warning = warnings[i];
    channel.Send(WarningMessage{Located(file.Path(), {warning.line, warning.column}, "warning: " + warning.text)});
  }
  if (warnings.size() <= kMaxWarnings) return;
  channel.Send(
      WarningMessage{fmt::format("{}: warning: {} more like these", file.Path(), warnings.size() - kMaxWarnings)});
}

void Invoke(ScoreFile& file, const JobSettings& settings, const Extension& extension, const Channel& channel) {
  DistantUser user(channel, settings.agree);
  OpenDocument document(file.GetScore());
  const std::optional<EREGION> region = RegionOf(settings.region, file.GetScore());
  Session session(extension, document, user, {region, settings.shownLayers});
  // The extension may write to either record.
  std::optional<EREGION> selected = region;
  EREGION fallback = WholeScore(file.GetScore());
  extension.Invoke(settings.item, selected ? &*selected : nullptr, &fallback);
  extension.Terminate();
  session.RethrowFailure();  // the extension may have gone on with half of its work
}

bool IsNamedMxl(const std::string& path) {
  constexpr std::size_t kLength = 4;
  return path.size() >= kLength && strcasecmp(path.c_str() + path.size() - kLength, ".mxl") == 0;
}

// Compressed and plain scores keep to the names that their readers know them by.
void CheckTarget(const Job& job, const ScoreFile& file) {
  if (!job.target || *job.target == job.score || IsNamedMxl(*job.target) == file.IsCompressed()) return;
  if (IsNamedMxl(job.score) != file.IsCompressed()) return;  // the name was misleading to begin with
  throw OutputError(*job.target + (file.IsCompressed() ? ": the score is compressed, and so is the result: name it .mxl"
                                                       : ": the score is not compressed, nor is the result: name it "
                                                         ".musicxml"));
}

// Where the result goes, looked at before the score is read.
std::optional<Target> TargetOf(const Job& job, const InputFile& score) {
  if (!job.target) return std::nullopt;
  std::optional<Target> target(*job.target);
  if (*job.target == job.score) target->ExpectSameAs(score.Identity());
  return target;
}

int RunOpened(const InputFile& input, const Job& job, const JobSettings& settings, const Extension& extension,
              const Channel& channel) {
  const auto isCancelled = [] { return InterruptCount() > 0; };
  const auto target = TargetOf(job, input);
  ScoreFile file(input, settings.maxSize, settings.readers);
  SendWarnings(file, channel);
  CheckTarget(job, file);
  if (isCancelled()) return kInterrupted;
  Invoke(file, settings, extension, channel);
  if (isCancelled()) return kInterrupted;
  const LedgerEdits edits = file.Edits();
  const bool isWritten = job.Writes(edits.ChangedEntries());
  if (isWritten) {
    const auto warnings = file.Save(edits, *target, isCancelled);
    if (!warnings) return kInterrupted;
    for (const std::string& warning : *warnings) channel.Send(WarningMessage{warning});
  }
  channel.Send(DoneMessage{edits.ChangedEntries(), file.GetScore().entries.size(), isWritten ? 1u : 0u});
  return kDone;
}

int RunToTheEnd(const Job& job, const JobSettings& settings, const Extension& extension, const Channel& channel) {
  const InputFile input(job.score);
  const MemoryLimit limit(settings.maxMemory.value_or(DefaultMemory(input.Size())), settings.readers);
  return limit.During([&] { return RunOpened(input, job, settings, extension, channel); });
}

}  // namespace

int RunJob(const Job& job, const JobSettings& settings, const Extension& extension, const Channel& channel) {
  try {
    return RunToTheEnd(job, settings, extension, channel);
  } catch (const InputError& error) {
    channel.Send(BadInputMessage{Located(job.score, error.place, error.what())});
    return kBadInput;
  } catch (const OutputError& error) {
    channel.Send(FailureMessage{error.what()});
  } catch (const std::exception& error) {
    channel.Send(FailureMessage{job.score + ": " + error.what()});
  }
  return kFailed;
}

}  // namespace brvhost
