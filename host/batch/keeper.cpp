#include "host/batch/keeper.h"

#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <iterator>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "host/batch/mayhelp.h"
#include "host/batch/regionjson.h"
#include "host/bundle/bundlename.h"
#include "host/files/filekind.h"
#include "host/files/inputfile.h"
#include "host/files/outputerror.h"
#include "host/files/scorefile.h"
#include "host/files/standardstreams.h"
#include "host/files/target.h"
#include "host/process/interrupt.h"
#include "host/process/memorylimit.h"
#include "host/score/summary.h"
#include "host/services/documentimage.h"
#include "host/text/inputerror.h"
#include "host/text/reason.h"

namespace brvhost {
namespace {

constexpr std::size_t kMaxWarnings = 5;

// The list of a large score goes out in pieces, so that nobody but this process holds the whole.
constexpr std::size_t kChangesAMessage = 1024;

// What the messages of a worker may have beside its result.
constexpr std::size_t kMaxText = std::size_t{1} << 20;

// Compressed and plain scores keep to the names that their readers know them by.
void CheckTarget(const Job& job, const ScoreFile& file) {
  if (!job.HasFile() || *job.target == job.score || IsNamedMxl(*job.target) == file.IsCompressed()) return;
  const bool hasName = job.score != kStandardStream;
  if (hasName && IsNamedMxl(job.score) != file.IsCompressed()) return;  // the name was misleading to begin with
  throw OutputError(*job.target + (file.IsCompressed() ? ": the score is compressed, and so is the result: name it .mxl"
                                                       : ": the score is not compressed, nor is the result: name it "
                                                         ".musicxml"));
}

void CheckStandardOutput(const Job& job, const ScoreFile& file) {
  if (!job.target || job.HasFile() || !file.IsCompressed() || isatty(STDOUT_FILENO) == 0) return;
  throw OutputError(OutputName(*job.target) + ": is a terminal; a compressed score goes to a file or a pipe");
}

// Where the result goes, looked at before the score is read.
std::optional<Target> TargetOf(const Job& job, const InputFile& score) {
  if (!job.HasFile()) return std::nullopt;
  constexpr TargetAdvice kAdvice = {"; --out-dir writes into a folder", "; --output - writes to the standard output"};
  std::optional<Target> target(std::in_place, *job.target, kAdvice);
  if (*job.target == job.score) target->ExpectSameAs(score.Identity());
  return target;
}

DoneMessage DoneOf(const Score& score, std::size_t changedEntries, bool isWritten) {
  const EntryCounts counts = CountsOf(score);
  const auto hidden = std::ranges::count_if(score.entries, &ScoreEntry::hidden);
  return {changedEntries,     counts.notes, counts.chords, counts.rests, static_cast<std::uint64_t>(hidden),
          isWritten ? 1u : 0u};
}

bool IsInterrupted() { return InterruptCount() > 0; }

class Keeper {
 public:
  Keeper(const Job& job, const JobSettings& settings, Channel& supervisor, Channel worker)

      : job_(job),
        name_(InputName(job.score)),
        settings_(settings),
        supervisor_(supervisor),
        worker_(std::move(worker)) {}

  // The last message about the job.
  Message Run() {
    try {
      const InputFile input(job_.score);
      const MemoryLimit limit(settings_.maxMemory.value_or(DefaultMemory(input.Size())), settings_.readers);
      return limit.During([&] { return RunOpened(input); });
    } catch (const InputError& error) {
      return BadInputMessage{Located(name_, error.place, error.what())};
    } catch (const OutputError& error) {
      return Failure(error.what(), MayPass(error));
    } catch (const std::exception& error) {
      return Failure(name_ + ": " + ReasonOf(error), MayPass(error));
    }
  }

 private:
  Message RunOpened(const InputFile& input) {
    const auto target = TargetOf(job_, input);
    ScoreFile file(input, settings_.maxSize, settings_.readers);
    if (file.IsCompressed()) supervisor_.Send(MemberMessage{file.Member()});
    SendWarnings(file);
    CheckTarget(job_, file);
    CheckStandardOutput(job_, file);
    Message answer = AskWorker(file.GetScore());
    const auto* const result = std::get_if<ResultMessage>(&answer);
    if (result == nullptr) return answer;
    supervisor_.Send(HandedBackMessage{});
    if (IsInterrupted()) return LostMessage{};
    if (!TakeHiddenBits(result->text, file.GetScore())) {
      return FailureMessage{OfExtension("garbled its result; nothing was written")};
    }
    return Write(file, target);
  }

  Message Write(const ScoreFile& file, const std::optional<Target>& target) {
    const LedgerEdits edits = file.Edits();
    const bool isWritten = job_.Writes(edits.ChangedEntries());
    // Before anything is written, as it may take more memory than there is.
    const std::vector<EntryChange> changes = settings_.listsChanges ? file.Changes() : std::vector<EntryChange>();
    if (isWritten && !target) {
      if (!file.Print(edits, STDOUT_FILENO, OutputName(*job_.target), IsInterrupted)) return LostMessage{};
    } else if (isWritten) {
      const auto warnings = file.Save(edits, *target, IsInterrupted);
      if (!warnings) return LostMessage{};
      for (const std::string& warning : *warnings) Warn(warning);
    }
    SendChanges(changes);
    return DoneOf(file.GetScore(), edits.ChangedEntries(), isWritten);
  }

  void SendChanges(std::span<const EntryChange> changes) {
    for (; !changes.empty(); changes = changes.subspan(std::min(kChangesAMessage, changes.size()))) {
      supervisor_.Send(ChangesMessage{BytesOf(changes.first(std::min(kChangesAMessage, changes.size())))});
      if (!WaitForMore()) return;
    }
  }

  // False when the supervisor is gone.
  bool WaitForMore() {
    while (const auto message = supervisor_.Receive()) {
      if (std::holds_alternative<MoreMessage>(*message)) return true;
    }
    return false;
  }

  void SendWarnings(const ScoreFile& file) const {
    const auto& warnings = file.GetScore().warnings;
    for (std::size_t i = 0; i < warnings.size() && i < kMaxWarnings; ++i) {
      const ScoreWarning& warning = warnings[i];
      Warn(file.LocatedText({warning.line, warning.column}, "warning: " + warning.text));
    }
    if (warnings.size() <= kMaxWarnings) return;
    Warn(fmt::format("{}: warning: {} more like these", file.Path(), warnings.size() - kMaxWarnings));
  }

  void Warn(const std::string& text) const { supervisor_.Send(WarningMessage{text}); }

  // What ends the work on the score: a result, or a message for the supervisor.
  Message AskWorker(const Score& score) {
    const std::vector<Block> blocks = BlocksOf(settings_.region, score);
    if (settings_.printsJson) supervisor_.Send(RegionMessage{JsonOfRegion(blocks)});
    const std::string image = ImageOf(score, blocks);
    worker_.Distrust(score.entries.size() + kMaxText);
    supervisor_.Send(HandedOutMessage{});
    worker_.Send(DocumentMessage{image});  // a worker that is gone may have left a message
    for (;;) {
      pollfd waiting[] = {{worker_.Get(), POLLIN, 0}, {supervisor_.Get(), POLLIN, 0}};
      if (poll(waiting, std::size(waiting), -1) <= 0) continue;
      if (waiting[0].revents != 0) {
        if (auto end = HearWorker()) return *std::move(end);
      } else if (auto end = HearSupervisor()) {
        return *std::move(end);
      }
    }
  }

  std::optional<Message> HearWorker() {
    if (!worker_.Fill()) return LostMessage{};
    while (auto message = worker_.Next()) {
      if (std::holds_alternative<ResultMessage>(*message)) return message;
      if (auto* const failure = std::get_if<FailureMessage>(&*message)) {
        return FailureMessage{OfExtension(failure->text)};
      }
      if (auto* const failure = std::get_if<PassingFailureMessage>(&*message)) {
        return PassingFailureMessage{OfExtension(failure->text)};
      }
      if (std::holds_alternative<NoMemoryMessage>(*message)) {
        return PassingFailureMessage{OfExtension(fmt::format("failed: {}; nothing was written", kNoMemory))};
      }
      if (!PassOn(*message)) return FailureMessage{OfExtension("garbled its messages; nothing was written")};
    }
    return std::nullopt;
  }

  // False for what a worker cannot have to say.
  bool PassOn(const Message& message) {
    if (const auto* const warning = std::get_if<WarningMessage>(&message)) {
      Warn(OfExtension(warning->text, "warning: "));
      return true;
    }
    const bool isQuestion = std::holds_alternative<QuestionMessage>(message);
    if (isQuestion && std::exchange(isAsking_, true)) return false;
    const bool isForUser = isQuestion || std::holds_alternative<AlertMessage>(message) ||
                           std::holds_alternative<ProgressMessage>(message) ||
                           std::holds_alternative<ProgressEndMessage>(message);
    if (isForUser) supervisor_.Send(message);
    return isForUser;
  }

  // "score.musicxml: the extension LegerLines ...".
  std::string OfExtension(const std::string& clause, const char* kind = "") const {
    return fmt::format("{}: {}the extension {} {}", name_, kind, NameOfBundle(settings_.bundle), clause);
  }

  std::optional<Message> HearSupervisor() {
    if (!supervisor_.Fill()) return LostMessage{};
    while (const auto message = supervisor_.Next()) {
      if (std::holds_alternative<AnswerMessage>(*message)) {
        isAsking_ = false;
        worker_.Send(*message);
      }
      if (!std::holds_alternative<WorkerEndedMessage>(*message)) continue;
      // Something that the worker started may hold the line open; what it sent itself has arrived.
      while (worker_.HasMore()) {
        if (auto end = HearWorker()) return end;
      }
      return LostMessage{};
    }
    return std::nullopt;
  }

  const Job& job_;
  const std::string name_;  // of the score
  const JobSettings& settings_;
  Channel& supervisor_;
  Channel worker_;
  bool isAsking_ = false;  // the user is to answer a question
};

void DoJobs(const std::vector<Job>& jobs, const JobSettings& settings, Channel& supervisor) {
  while (const auto message = supervisor.Receive()) {
    const auto* const next = std::get_if<JobMessage>(&*message);
    if (next == nullptr) continue;  // too late for the last job
    Channel worker(supervisor.TakeDescriptor());
    const Message end = Keeper(jobs[next->job], settings, supervisor, std::move(worker)).Run();
    supervisor.Send(end);
  }
}

}  // namespace

void RunKeeper(const std::vector<Job>& jobs, const JobSettings& settings, Channel& supervisor) {
  try {
    DoJobs(jobs, settings, supervisor);
  } catch (const std::bad_alloc&) {
    supervisor.Send(NoMemoryMessage{});
  }
}

}  // namespace brvhost
