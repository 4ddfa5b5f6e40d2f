// What the process that runs an extension reports to the one that has the terminal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace brvhost {

// Text for the user.
struct AlertMessage {
  std::string text;
};

// To be answered by yes or no.
struct QuestionMessage {
  std::string text;
};

// Something about the score that had to be guessed.
struct WarningMessage {
  std::string text;
};

struct ProgressMessage {
  std::int64_t done = 0;
  std::int64_t total = 0;
};

// The display of progress ends.
struct ProgressEndMessage {};

// Unless the process ends early, its last message is one of these three: why the score cannot be used, why there is no
// result, or the result.
struct BadInputMessage {
  std::string text;
};
struct FailureMessage {
  std::string text;
};
struct DoneMessage {
  std::uint64_t changedEntries = 0;
  std::uint64_t entries = 0;
  std::uint64_t filesWritten = 0;  // 0 or 1
};

using Message = std::variant<AlertMessage, QuestionMessage, WarningMessage, ProgressMessage, ProgressEndMessage,
                             BadInputMessage, FailureMessage, DoneMessage>;

// The bytes of a message, for a process on the same machine.
std::string Encode(const Message& message);

// The number of bytes of the first message in `bytes`, or null when not all of it is there.
std::optional<std::size_t> EncodedSize(std::string_view bytes);

// The message in all of these bytes, or null when they are not those of a message.
std::optional<Message> Decode(std::string_view bytes);

}  // namespace brvhost
