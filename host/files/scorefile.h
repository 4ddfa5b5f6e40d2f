// A score file: plain or compressed MusicXML, opened, changed, and written.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "host/files/bytes.h"
#include "host/files/safefile.h"
#include "host/score/score.h"

namespace brvhost {

inline constexpr std::uint64_t kDefaultMaxSize = std::uint64_t{1} << 30;
inline constexpr std::uint64_t kLargestMaxSize = std::uint64_t{1} << 50;

class ScoreFile {
 public:
  // Reads the file whole. `maxSize` limits what the score in an archive may unpack to; `readers` is the number of
  // threads that may read parts at the same time. Throws InputError.
  explicit ScoreFile(const std::string& path, std::uint64_t maxSize = kDefaultMaxSize, int readers = 1);

  Score& GetScore() { return score_; }
  const Score& GetScore() const { return score_; }
  const std::string& Path() const { return path_; }
  bool IsCompressed() const { return !member_.empty(); }
  // The entries whose ledger lines are no longer as the file has them.
  std::size_t ChangedEntries() const;

  // Throws what Save would throw of the notes.
  void CheckChanges() const;

  // Writes the file with the ledger lines as they are now; `target` may be the file itself. False when `isCancelled`
  // said so before the result took the target's name. Throws OutputError, InputError where a note cannot be changed,
  // and what ReplaceMember throws. Unless it returns true, the target is as it was.
  bool Save(const std::string& target, const std::function<bool()>& isCancelled) const;

 private:
  Bytes EditedDocument() const;
  void WriteTo(SafeFile& file) const;

  std::string path_;
  Bytes archive_;  // the whole file, if it is compressed
  std::string member_;
  Bytes document_;
  Score score_;
};

}  // namespace brvhost
