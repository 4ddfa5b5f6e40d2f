#include "host/batch/job.h"

#include <fmt/format.h>
#include <strings.h>

#include "host/batch/exitstatus.h"
#include "host/batch/interrupt.h"
#include "host/files/outputerror.h"
#include "host/services/session.h"
#include "host/text/inputerror.h"

namespace brvhost {
namespace {

constexpr std::size_t kMostWarnings = 5;

// The user, at the other end of the channel.
class DistantUser : public User {
 public:
  DistantUser(const Channel& channel, bool agrees) : channel_(channel), agrees_(agrees) {}

  void Tell(const std::string& text) override { channel_.Send(MessageKind::kTell, text); }

  bool Ask(const std::string& question) override {
    if (agrees_) return true;
    channel_.Send(MessageKind::kAsk, question);
    return channel_.ReceiveAnswer();
  }

  void ShowProgress(std::int64_t done, std::int64_t total) override {
    channel_.Send(MessageKind::kProgress, fmt::format("{} {}", done, total));
  }

  void EndProgress() override { channel_.Send(MessageKind::kProgressEnd); }

 private:
  const Channel& channel_;
  const bool agrees_;
};

void SendWarnings(const ScoreFile& file, const Channel& channel) {
  const auto& warnings = file.GetScore().warnings;
  for (std::size_t i = 0; i < warnings.size() && i < kMostWarnings; ++i) {
    const ScoreWarning& warning = warnings[i];
    channel.Send(MessageKind::kWarn, Located(file.Path(), {warning.line, warning.column}, "warning: " + warning.text));
  }
  if (warnings.size() <= kMostWarnings) return;
  channel.Send(MessageKind::kWarn,
               fmt::format("{}: warning: {} more like these", file.Path(), warnings.size() - kMostWarnings));
}

void Invoke(ScoreFile& file, const JobSettings& settings, const Extension& extension, const Channel& channel) {
  DistantUser user(channel, settings.agree);
  OpenDocument document(file.GetScore());
  Session session(extension, document, user);
  session.region = RegionOf(settings.region, file.GetScore());
  session.shownLayers = settings.shownLayers;
  // The extension may write to either record.
  std::optional<EREGION> region = session.region;
  EREGION fallback = WholeScore(file.GetScore());
  extension.Invoke(settings.item, region ? &*region : nullptr, &fallback);
  extension.Terminate();
  session.RethrowFailure();  // the extension may have gone on, with half of what it was to do
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

int RunToTheEnd(const Job& job, const JobSettings& settings, const Extension& extension, const Channel& channel) {
  ScoreFile file(job.score, settings.maxSize, settings.readers);
  SendWarnings(file, channel);
  CheckTarget(job, file);
  if (InterruptCount() > 0) return kInterrupted;
  Invoke(file, settings, extension, channel);
  if (InterruptCount() > 0) return kInterrupted;
  const std::size_t changed = file.ChangedEntries();
  if (!job.target) file.CheckChanges();
  const bool writes = job.target && (changed > 0 || !job.onlyIfChanged);
  if (writes && !file.Save(*job.target, [] { return InterruptCount() > 0; })) return kInterrupted;
  channel.Send(MessageKind::kDone, fmt::format("{} {}", changed, file.GetScore().entries.size()));
  return kDone;
}

}  // namespace

int RunJob(const Job& job, const JobSettings& settings, const Extension& extension, const Channel& channel) {
  try {
    return RunToTheEnd(job, settings, extension, channel);
  } catch (const InputError& error) {
    channel.Send(MessageKind::kFailInput, Located(job.score, error.place, error.what()));
    return kBadInput;
  } catch (const OutputError& error) {
    channel.Send(MessageKind::kFailOutput, error.what());
  } catch (const std::bad_alloc&) {
    channel.Send(MessageKind::kFailOutput, job.score + ": there is not enough memory for this score");
  } catch (const std::exception& error) {
    channel.Send(MessageKind::kFailOutput, job.score + ": " + error.what());
  }
  return kFailed;
}

}  // namespace brvhost
