// Keys, times and transpositions from the document.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "hostrecords.h"
#include "recordinghost.h"
#include "transposition.h"

namespace {

class DocumentKeys : public testing::Test {
 protected:
  // Answers with a record whose word at each byte offset is 1000 plus that offset.
  void Serve(int result) {
    host.On("BX_LoadEData", [this, result](const HostCall& call) {
      tag = static_cast<std::uint32_t>(call.arguments[0]);
      key = *call.Pointer<EDataKey>(1);
      size = *call.Pointer<std::int32_t>(3);
      version = static_cast<std::uint32_t>(call.arguments[4]);
      seen.assign(call.Pointer<std::uint8_t>(2), call.Pointer<std::uint8_t>(2) + size);
      for (std::int16_t offset = 0; result != 0 && offset < size; offset = static_cast<std::int16_t>(offset + 2)) {
        const auto word = static_cast<std::int16_t>(1000 + offset);
        std::memcpy(call.Pointer<std::uint8_t>(2) + offset, &word, 2);
      }
      return static_cast<std::uint64_t>(result);
    });
  }

  RecordingHost host;
  std::uint32_t tag = 0;
  EDataKey key{};
  std::int32_t size = 0;
  std::uint32_t version = 0;
  std::vector<std::uint8_t> seen;
};

TEST_F(DocumentKeys, ReadTheKeySignatureOfAMeasure) {
  Serve(1);
  short signature = 0;
  EXPECT_EQ(BXUtilGetKeySig(-2, &signature), 1);
  EXPECT_EQ(signature, 1002);
  EXPECT_EQ(tag, 0x534F4D53u);
  EXPECT_EQ(key.recordNumber, 0xFFFE);
  EXPECT_EQ(key.recordIndex, 0);
  EXPECT_EQ(size, 30);
  EXPECT_EQ(version, 0x19500000u);
}

TEST_F(DocumentKeys, ReadTheTimeSignatureOfAMeasure) {
  Serve(1);
  tTimeSig time{};
  EXPECT_EQ(BXUtilGetTimeSig(7, &time), 1);
  EXPECT_EQ(time.beats, 1008);
  EXPECT_EQ(time.beatUnit, 1010);
  EXPECT_EQ(tag, 0x534F4D53u);
  EXPECT_EQ(key.recordNumber, 7);
}

TEST_F(DocumentKeys, ReadTheTranspositionOfAStaff) {
  Serve(1);
  short code = 0;
  EXPECT_EQ(BXUtilGetStaffTrans(3, &code), 1);
  EXPECT_EQ(code, 1020);
  EXPECT_EQ(tag, 0x534F4953u);
  EXPECT_EQ(key.recordNumber, 3);
  EXPECT_EQ(size, 136);
  EXPECT_EQ(std::vector<std::uint8_t>(seen.begin() + 102, seen.begin() + 114), std::vector<std::uint8_t>(12))
      << "cleared before the load";
}

TEST_F(DocumentKeys, StayAsTheyWereWhenTheHostFails) {
  Serve(0);
  short word = 5;
  tTimeSig time{6, 8};
  EXPECT_EQ(BXUtilGetKeySig(1, &word), 0);
  EXPECT_EQ(BXUtilGetTimeSig(1, &time), 0);
  EXPECT_EQ(BXUtilGetStaffTrans(1, &word), 0);
  EXPECT_EQ(word, 5);
  EXPECT_EQ(time.beats, 6);
  EXPECT_EQ(time.beatUnit, 8);
}

}  // namespace
