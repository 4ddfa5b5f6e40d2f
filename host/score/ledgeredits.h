// The edits of bytes that bring a document in line with the ledger lines of its score.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/score/score.h"
#include "host/xml/starttag.h"

namespace brvhost {

// The attribute print-leger changes in the notes of entries whose state has changed: it is set to "no" where an entry
// is hidden, and removed where one is shown. All other bytes stay.
class LedgerEdits {
 public:
  // `document` is what the score was read from, and outlives this object. Throws InputError where a note that has to
  // change comes from an entity.
  LedgerEdits(std::string_view document, const Score& score);

  // The entries whose ledger lines are no longer as the document has them.
  std::size_t ChangedEntries() const { return changedEntries_; }
  // The size of the edited document in bytes.
  std::size_t EditedSize() const { return editedSize_; }
  // Hands out the edited document in pieces, in order.
  void Write(const std::function<void(std::string_view)>& write) const;

 private:
  // From `offset` on, `removed` bytes are replaced by texts_[text]. A large score has millions of edits, and few texts.
  struct Edit {
    std::uint64_t offset = 0;
    std::uint64_t removed : 56 = 0;
    std::uint64_t text : 8 = 0;
  };

  void Append(const ByteEdit& edit);
  std::uint8_t NumberOf(const std::string& text);

  std::string_view document_;
  std::size_t changedEntries_ = 0;
  std::size_t editedSize_ = 0;
  std::vector<Edit> edits_;  // in the order of the document
  std::vector<std::string> texts_;
};

}  // namespace brvhost
