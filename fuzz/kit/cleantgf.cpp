// Frames of any bytes, cleaned, against the steps of cleaning one after another.
#include "cleantgf.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "brevixpdk.h"
#include "fuzz/support/guardedmemory.h"
#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

// The layout of an entry, in bytes.
constexpr std::size_t kEntry = 146;
constexpr std::size_t kCount = 14;
constexpr std::size_t kNotes = 16;
constexpr std::size_t kNote = 10;
constexpr std::size_t kPosition = 136;

constexpr std::size_t kMaxSize = 8192;

// Null where the steps lead beyond the bytes: a count may be anything, and a note that covers the count of the next
// entry may make it anything.
class Model {
 public:
  explicit Model(Bytes bytes) : bytes_(std::move(bytes)) {}

  std::optional<Bytes> Clean(std::size_t entries, bool fillRests) {
    for (std::size_t i = 0; i < entries; ++i) {
      if (!CleanEntry(i * kEntry, fillRests)) return std::nullopt;
    }
    return bytes_;
  }

 private:
  int Word(std::size_t at) const { return bytes_[at] | bytes_[at + 1] << 8; }
  int SignedWord(std::size_t at) const { return Word(at) < 0x8000 ? Word(at) : Word(at) - 0x10000; }
  void Put(std::size_t at, int word) {
    bytes_[at] = static_cast<std::uint8_t>(word & 0xFF);
    bytes_[at + 1] = static_cast<std::uint8_t>(word >> 8 & 0xFF);
  }

  // A number for each note without one and for the earlier of two equal ones.
  void Number(std::size_t first, std::size_t last) {
    int greatest = 0;
    for (std::size_t id = first; id < last; id += kNote) greatest = std::max(greatest, SignedWord(id));
    for (std::size_t id = first; id < last; id += kNote) {
      bool needsAnother = Word(id) == 0;
      for (std::size_t other = first; other < last; other += kNote) {
        if (other != id && Word(other) == Word(id)) needsAnother = true;
      }
      if (needsAnother) Put(id, ++greatest);
    }
  }

  bool CleanEntry(std::size_t entry, bool fillRests) {
    if (entry + kEntry > bytes_.size()) return false;
    const auto count = static_cast<std::size_t>(std::max(SignedWord(entry + kCount), 0));
    const std::size_t notes = entry + kNotes;
    const std::size_t end = notes + kNote * count;
    if (end > bytes_.size()) return false;
    Number(notes + 4, end);
    for (std::size_t note = notes; note < end; note += kNote) {
      Put(note + 8, (Word(note + 8) & ~0x1F) | (Word(note + 4) & 0x1F));
    }
    for (std::size_t at = end; at < entry + kPosition; ++at) bytes_[at] = 0;
    if (count > 0 || !fillRests) return true;
    Put(entry + kCount, 1);
    Put(notes + 8, 0x8000);
    bytes_[entry + 11] |= 1;
    return true;
  }

  Bytes bytes_;
};

}  // namespace

// A byte of flags, the number of entries, then the entries and what lies after them.
int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const GuardedMemory memory(kMaxSize);
  Input input(bytes, size);
  const int flags = input.Byte();
  const auto entries = static_cast<std::int16_t>((flags & 2) != 0 ? -input.Byte() : input.Below(20));
  const std::string_view rest = input.Text(kMaxSize);
  const Bytes before(rest.begin(), rest.end() - static_cast<std::ptrdiff_t>(rest.size() % 2));  // at even addresses
  const bool fillRests = (flags & 1) != 0;
  const auto expected = Model(before).Clean(static_cast<std::size_t>(std::max<int>(entries, 0)), fillRests);
  if (!expected) return 0;

  std::uint8_t* const place = memory.End() - before.size();
  std::ranges::copy(before, place);
  EXTGF2005a frame = {};
  frame.entries = reinterpret_cast<EXENTRY*>(place);
  frame.entryCount = entries;
  CanAddNoteRecordToRests = fillRests ? static_cast<std::uint8_t>(flags | 1) : 0;
  CleanTGF(&frame, true);
  Require(Bytes(place, memory.End()) == *expected, "a cleaned frame is what the steps make of it");
  Require(frame.entries == reinterpret_cast<EXENTRY*>(place) && frame.entryCount == entries, "the header stays");
  return 0;
}
