// A score that a recording host serves, from a few lines: frames by staff, measure and layer, and records.
//
// Example:
//
//   RecordingHost host;
//   TestScore score(host);
//   score.Put({.staff = 1, .measure = 2}, {NoteAt(0), RestAt(kQuarterNote), NoteAt(2 * kQuarterNote)});
//   EREGION region = score.Region();
//   // invoke the extension on it
//   score.At({.staff = 1, .measure = 2})[0].flags;  // as it was saved
//   score.LoadedFrames();                           // 0, if each has been freed
//
// An extension works on a copy of a frame, as in the application: what it does not save is lost. All layers are shown.
#pragma once

#include <BrvEDK/hostrecords.h>
#include <BrvEDK/recordinghost.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

// The ticks of a quarter note, in which positions in a measure are counted.
inline constexpr std::int32_t kQuarterNote = 10080;

// An entry with one note, or none, at a position in its measure.
EXENTRY NoteAt(std::int32_t position);
EXENTRY RestAt(std::int32_t position);

// Where a frame is: staves and measures count from 1, layers from 0.
struct FramePlace {
  int staff = 1;    // from 1
  int measure = 1;  // from 1
  int layer = 0;    // from 0

  // By staff, then measure, then layer.
  bool operator<(const FramePlace& other) const {
    return std::tie(staff, measure, layer) < std::tie(other.staff, other.measure, other.layer);
  }
};

// The frames and records that a recording host serves.
class TestScore {
 public:
  // A record as bytes.
  using Bytes = std::vector<std::uint8_t>;

  // Sets the host's handlers of the functions that load, save and free frames, count and show layers, and load and save
  // records. The score has to outlive the last call of them.
  explicit TestScore(RecordingHost& host);
  TestScore(const TestScore&) = delete;
  TestScore& operator=(const TestScore&) = delete;

  // The entries of a frame, in ascending order of position; a frame that is put again is another.
  void Put(FramePlace place, std::vector<EXENTRY> entries);
  // Throws std::out_of_range where no frame is.
  const std::vector<EXENTRY>& At(FramePlace place) const { return frames_.at(place); }
  // Frames that the extension has loaded and not freed.
  int LoadedFrames() const { return static_cast<int>(loaded_.size()); }

  // A record, by its tag and numbers (documentrecords.h); Record is the struct of the tag.
  //
  // Example:
  //   EDTMeasureSpec2014 measure = {};
  //   measure.beats = 3;
  //   measure.beatUnit = 4;
  //   score.PutRecord(kMeasureSpecTag, 1, measure);
  template <class Record>
  void PutRecord(std::uint32_t tag, int number, const Record& record, int index = 0) {
    Bytes bytes(sizeof(Record));
    std::memcpy(bytes.data(), &record, sizeof(Record));
    PutBytes(tag, number, std::move(bytes), index);
  }
  // Puts a record by its bytes.
  void PutBytes(std::uint32_t tag, int number, Bytes bytes, int index = 0);
  // Null where no record is.
  const Bytes* RecordAt(std::uint32_t tag, int number, int index = 0) const;

  // The staff's name, in its record, a text block and a raw text, which have the staff's number.
  void NameStaff(int staff, const std::u16string& name);

  // The region from the first staff and measure to the last that has a frame.
  EREGION Region() const;

 private:
  struct LoadedFrame {
    FramePlace place;
    std::vector<EXENTRY> entries;
    EXTGF2005a record = {};
  };

  std::uint64_t LayerCount() const;
  std::uint64_t Load(const HostCall& call);
  std::uint64_t Save(const HostCall& call);
  std::uint64_t Free(const HostCall& call);
  std::uint64_t LoadRecord(const HostCall& call) const;
  std::uint64_t SaveRecord(const HostCall& call);

  std::map<FramePlace, std::vector<EXENTRY>> frames_;
  std::map<EXTGF2005a*, std::unique_ptr<LoadedFrame>> loaded_;
  std::map<std::tuple<std::uint32_t, int, int>, Bytes> records_;
};
