// What the processes of a run report to each other. The supervisor has the terminal; the loader runs the extension's
// code, and starts a worker for each score; a keeper reads the score, and writes the result.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace brvhost {

// From a worker, by way of its keeper, to the supervisor.

// Text for the user.
struct AlertMessage {
  std::string text;
};
// To be answered by yes or no.
struct QuestionMessage {
  std::string text;
};
struct ProgressMessage {
  std::int64_t done = 0;
  std::int64_t total = 0;
};
// The display of progress ends.
struct ProgressEndMessage {};

// Back again.
struct AnswerMessage {
  std::uint8_t yes = 0;
};

// Between a keeper and its worker: the image of the document, which starts the work, and the hidden bits of its
// entries, which end it. A worker may end it with a failure, too. Its failures and warnings are clauses about
// the extension, without their subject.
struct DocumentMessage {
  std::string text;
};
struct ResultMessage {
  std::string text;
};

// From a keeper to the supervisor: the score is read, and the worker has it; the worker has handed it back.
struct HandedOutMessage {};
struct HandedBackMessage {};

// Something about the score or the extension that the user should know.
struct WarningMessage {
  std::string text;
};

// From a keeper to the supervisor, where the changes are to be listed: the member of an archive that has the score, and
// the bytes of some EntryChanges. It sends more of them when the supervisor has printed these.
struct MemberMessage {
  std::string text;
};
struct ChangesMessage {
  std::string text;
};
struct MoreMessage {};

// From a keeper to the supervisor, where each score is reported in JSON: the region that the extension works on.
struct RegionMessage {
  std::string text;
};

// The last message about a score is one of these five: why it cannot be used, why there is no result, why there is none
// this time, the result, or that the worker has gone without one.
struct BadInputMessage {
  std::string text;
};
struct FailureMessage {
  std::string text;
};
struct PassingFailureMessage {
  std::string text;
};
struct DoneMessage {
  std::uint64_t changedEntries = 0;
  std::uint64_t notes = 0;  // entries of one note
  std::uint64_t chords = 0;
  std::uint64_t rests = 0;
  std::uint64_t hiddenEntries = 0;  // in the result
  std::uint64_t filesWritten = 0;   // 0 or 1

  std::uint64_t Entries() const { return notes + chords + rests; }
};
struct LostMessage {};

// From a keeper, a worker or the loader: it has no memory to go on, not even for another message.
struct NoMemoryMessage {};

// From the supervisor to a keeper: the number of its next job, with the worker's end of the line; that the worker's
// process has ended.
struct JobMessage {
  std::uint64_t job = 0;
};
struct WorkerEndedMessage {};

// From the loader to the supervisor: what the extension offers, or why it cannot be used; how a worker ended.
struct OfferMessage {
  std::string text;
};
struct BadBundleMessage {
  std::string text;
};
struct EndedMessage {
  static constexpr std::int64_t kUnknown = -1;
  static constexpr std::int64_t kNotStarted = -2;  // the system allows no more processes

  std::uint64_t job = 0;
  std::int64_t status = 0;  // as waitpid gives it, or one of these
};

// From the supervisor to the loader: to load the bundle, with the file of the trace where there is one; what the lines
// of the next worker in it begin with; a worker for a job, with its end of the line and a pipe for what it prints; an
// interrupt for all workers; that a worker should have ended by now, or is to be killed.
struct LoadMessage {};
struct LabelMessage {
  std::string text;
};
struct StartMessage {
  std::uint64_t job = 0;
  std::uint64_t slot = 0;
  std::uint64_t item = 0;
};
struct InterruptMessage {};
struct EndMessage {
  std::uint64_t job = 0;
  std::uint64_t atOnce = 0;  // 0 or 1
};

using Message =
    std::variant<AlertMessage, QuestionMessage, ProgressMessage, ProgressEndMessage, AnswerMessage, DocumentMessage,
                 ResultMessage, WarningMessage, BadInputMessage, FailureMessage, DoneMessage, LostMessage, JobMessage,
                 WorkerEndedMessage, HandedOutMessage, HandedBackMessage, OfferMessage, BadBundleMessage, EndedMessage,
                 StartMessage, InterruptMessage, EndMessage, NoMemoryMessage, MemberMessage, ChangesMessage,
                 MoreMessage, RegionMessage, PassingFailureMessage, LoadMessage, LabelMessage>;

// Why there is no result, or none this time.
inline Message Failure(std::string text, bool mayPass) {
  if (mayPass) return PassingFailureMessage{std::move(text)};
  return FailureMessage{std::move(text)};
}

// The bytes of a message, for a process on the same machine. A message without content needs no memory.
std::string Encode(const Message& message);

// The number of bytes of the first message in `bytes`, as far as it is known yet.
std::optional<std::size_t> EncodedSize(std::string_view bytes);

// The message in all of these bytes, or null when they are not those of a message.
std::optional<Message> Decode(std::string_view bytes);

}  // namespace brvhost
