#include "host/services/documentimage.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "host/services/scorerecords.h"

namespace brvhost {
namespace {

constexpr std::size_t kBits = 8;

// What instruments are counted by.
struct PartCounts {
  std::int32_t staves;
  std::int32_t firstStaff;
  std::int32_t instruments;
};

struct ScoreCounts {
  std::int32_t staves;
  std::int32_t measures;
  std::int32_t layers;
};

struct RecordHead {
  std::uint32_t tag;
  EDataKey key;
};

class Writer {
 public:
  template <class Plain>
  void Put(const Plain& plain) {
    static_assert(std::is_trivially_copyable_v<Plain>);
    bytes_.append(reinterpret_cast<const char*>(&plain), sizeof(plain));
  }

  template <class Plain>
  void PutAll(const std::vector<Plain>& plains) {
    static_assert(std::is_trivially_copyable_v<Plain>);
    Put(plains.size());
    bytes_.append(reinterpret_cast<const char*>(plains.data()), plains.size() * sizeof(Plain));
  }

  std::string Take() { return std::move(bytes_); }

 private:
  std::string bytes_;
};

class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  template <class Plain>
  Plain Get() {
    Plain plain;
    std::memcpy(&plain, Bytes(sizeof(plain)), sizeof(plain));
    return plain;
  }

  template <class Plain>
  std::vector<Plain> GetAll() {
    std::vector<Plain> plains(Get<std::size_t>());
    const std::size_t size = plains.size() * sizeof(Plain);
    if (size > 0) std::memcpy(static_cast<void*>(plains.data()), Bytes(size), size);
    return plains;
  }

  bool IsAtEnd() const { return rest_.empty(); }

 private:
  const char* Bytes(std::size_t size) {
    const char* const bytes = rest_.data();
    rest_.remove_prefix(size);
    return bytes;
  }

  std::string_view rest_;
};

std::vector<PartCounts> CountsOf(const std::vector<ScorePart>& parts) {
  std::vector<PartCounts> counts;
  counts.reserve(parts.size());
  for (const ScorePart& part : parts) counts.push_back({part.staves, part.firstStaff, part.instruments});
  return counts;
}

ScorePart PartWith(const PartCounts& counts) {
  ScorePart part;
  part.staves = counts.staves;
  part.firstStaff = counts.firstStaff;
  part.instruments = counts.instruments;
  return part;
}

}  // namespace

std::string ImageOf(const Score& score, const std::vector<Block>& blocks) {
  Writer writer;
  writer.Put(blocks.size());
  for (const Block& block : blocks) {
    writer.Put(block.region);
    writer.PutAll(block.layers);
  }
  writer.Put(ScoreCounts{score.staves, score.measures, score.layers});
  writer.PutAll(score.entries);
  writer.PutAll(score.frames);
  writer.PutAll(CountsOf(score.parts));
  EDataStore records;
  StoreScoreRecords(score, records);
  records.ForEach([&writer](std::uint32_t tag, EDataKey key, const EDataStore::Bytes& bytes) {
    writer.Put(RecordHead{tag, key});
    writer.PutAll(bytes);
  });
  return writer.Take();
}

DocumentImage ReadImage(std::string_view bytes) {
  DocumentImage image;
  Reader reader(bytes);
  image.blocks.resize(reader.Get<std::size_t>());
  for (Block& block : image.blocks) {
    block.region = reader.Get<EREGION>();
    block.layers = reader.GetAll<NumberRun>();
  }
  const auto counts = reader.Get<ScoreCounts>();
  image.score.staves = counts.staves;
  image.score.measures = counts.measures;
  image.score.layers = counts.layers;
  image.score.entries = reader.GetAll<ScoreEntry>();
  image.score.frames = reader.GetAll<ScoreFrame>();
  for (const PartCounts& part : reader.GetAll<PartCounts>()) image.score.parts.push_back(PartWith(part));
  while (!reader.IsAtEnd()) {
    const auto head = reader.Get<RecordHead>();
    image.records.Save(head.tag, head.key, reader.GetAll<std::uint8_t>());
  }
  return image;
}

std::string HiddenBits(const Score& score) {
  std::string bits((score.entries.size() + kBits - 1) / kBits, '\0');
  for (std::size_t i = 0; i < score.entries.size(); ++i) {
    if (score.entries[i].hidden) bits[i / kBits] = static_cast<char>(bits[i / kBits] | 1 << i % kBits);
  }
  return bits;
}

bool TakeHiddenBits(std::string_view bits, Score& score) {
  if (bits.size() != (score.entries.size() + kBits - 1) / kBits) return false;
  for (std::size_t i = 0; i < score.entries.size(); ++i) {
    score.entries[i].hidden = (bits[i / kBits] >> i % kBits & 1) != 0;
  }
  return true;
}

}  // namespace brvhost
