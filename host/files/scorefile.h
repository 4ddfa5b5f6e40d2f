// A score file: plain or compressed MusicXML, opened, changed, and written.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/files/bytes.h"
#include "host/files/inputfile.h"
#include "host/files/sizelimit.h"
#include "host/files/target.h"
#include "host/score/changes.h"
#include "host/score/ledgeredits.h"
#include "host/score/score.h"
#include "host/text/inputerror.h"

namespace brvhost {

class ScoreFile {
 public:
  // Reads the whole file. `maxSize` limits what a pipe may bring, and what the score in an archive may unpack to;
  // `readers` is the number of threads that may read parts at the same time. Throws InputError.
  explicit ScoreFile(const InputFile& input, std::uint64_t maxSize = kDefaultMaxSize, int readers = 1);

  Score& GetScore() { return score_; }
  const Score& GetScore() const { return score_; }
  const std::string& Path() const { return path_; }
  // "file:line:column: message" about the score's document; within an archive with its name there.
  std::string LocatedText(TextPlace place, const std::string& message) const;
  bool IsCompressed() const { return !member_.empty(); }
  // The archive's member that has the score; empty in a plain file.
  const std::string& Member() const { return member_; }

  // What the ledger lines, as they are now, change in the score's document. Throws InputError where a note cannot be
  // changed.
  LedgerEdits Edits() const;

  // The same, entry by entry, with the lines of the document.
  std::vector<EntryChange> Changes() const { return ChangesOf(document_.View(), score_); }

  // Writes the file with these edits, which Edits() returned; `target` may be the file itself. Returns what SafeFile
  // warns of, or null when `isCancelled` returned true before the result took the target's name. Throws OutputError,
  // and what ReplaceMember throws. Unless it returns warnings, if only none, the target is as it was.
  [[nodiscard]] std::optional<std::vector<std::string>> Save(const LedgerEdits& edits, const Target& target,
                                                             const std::function<bool()>& isCancelled) const;

  // Writes the same to a descriptor. False when `isCancelled` returned true before the first byte. Throws OutputError,
  // which names `name`, and what ReplaceMember throws.
  [[nodiscard]] bool Print(const LedgerEdits& edits, int descriptor, const std::string& name,
                           const std::function<bool()>& isCancelled) const;

 private:
  // Hands out the pieces of the file with these edits.
  void WriteTo(const std::function<void(std::string_view)>& write, const LedgerEdits& edits) const;
  std::string ArchiveWith(const LedgerEdits& edits) const;

  std::string path_;
  Bytes archive_;  // the whole file, if it is compressed
  std::string member_;
  Bytes document_;
  Score score_;
};

}  // namespace brvhost
