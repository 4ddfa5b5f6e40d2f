#include <BrvEDK/testscore.h>

#include <BrvEDK/documentrecords.h>

#include <algorithm>
#include <utility>

namespace {

EXENTRY EntryAt(std::int32_t position) {
  EXENTRY entry = {};
  entry.position = position;
  return entry;
}

}  // namespace

EXENTRY NoteAt(std::int32_t position) {
  EXENTRY entry = EntryAt(position);
  entry.noteCount = 1;
  entry.notes[0].noteID = 1;
  entry.notes[0].noteWord = 1;
  entry.entryFlags[kContentByte] = kContentBit;
  return entry;
}

EXENTRY RestAt(std::int32_t position) { return EntryAt(position); }

TestScore::TestScore(RecordingHost& host) {
  host.On("BX_GetMaxLayers", [this](const HostCall&) { return LayerCount(); });
  host.Answer("BX_GetShowLayer", 1);
  host.On("BX_LoadTGF", [this](const HostCall& call) { return Load(call); });
  host.On("BX_SaveTGF", [this](const HostCall& call) { return Save(call); });
  host.On("BX_FreeTGF", [this](const HostCall& call) { return Free(call); });
  host.On("BX_LoadEData", [this](const HostCall& call) { return LoadRecord(call); });
  host.On("BX_SaveEData", [this](const HostCall& call) { return SaveRecord(call); });
}

void TestScore::Put(FramePlace place, std::vector<EXENTRY> entries) { frames_[place] = std::move(entries); }

void TestScore::PutBytes(std::uint32_t tag, int number, Bytes bytes, int index) {
  records_[{tag, number, index}] = std::move(bytes);
}

const TestScore::Bytes* TestScore::RecordAt(std::uint32_t tag, int number, int index) const {
  const auto found = records_.find({tag, number, index});
  return found == records_.end() ? nullptr : &found->second;
}

void TestScore::NameStaff(int staff, const std::u16string& name) {
  const auto* const units = reinterpret_cast<const std::uint8_t*>(name.data());
  PutBytes(kRawTextTag, staff, Bytes(units, units + name.size() * sizeof(char16_t)));
  EDTTextBlock25_4 block = {};
  block.rawText = static_cast<std::int16_t>(staff);
  PutRecord(kTextBlockTag, staff, block);
  EDTStaffSpec2014 spec = {};
  if (const Bytes* const bytes = RecordAt(kStaffSpecTag, staff); bytes != nullptr) {
    std::memcpy(&spec, bytes->data(), std::min(bytes->size(), sizeof(spec)));
  }
  spec.nameTextBlock = static_cast<std::int16_t>(staff);
  PutRecord(kStaffSpecTag, staff, spec);
}

EREGION TestScore::Region() const {
  EREGION region = {};
  region.startStaff = region.startMeasure = 1;
  for (const auto& [place, entries] : frames_) {
    region.endStaff = std::max(region.endStaff, static_cast<std::int16_t>(place.staff));
    region.endMeasure = std::max(region.endMeasure, static_cast<std::int16_t>(place.measure));
  }
  region.endPosition = INT32_MAX;
  return region;
}

std::uint64_t TestScore::LayerCount() const {
  int layers = 1;
  for (const auto& [place, entries] : frames_) layers = std::max(layers, place.layer + 1);
  return static_cast<std::uint64_t>(layers);
}

std::uint64_t TestScore::Load(const HostCall& call) {
  const auto found = frames_.find({call.Int(1), call.Int(2), call.Int(3)});
  if (found == frames_.end()) return 0;
  auto frame = std::make_unique<LoadedFrame>(LoadedFrame{found->first, found->second});
  frame->record.entries = frame->entries.data();
  frame->record.entryCount = static_cast<std::int16_t>(frame->entries.size());
  EXTGF2005a* const record = &frame->record;
  loaded_[record] = std::move(frame);
  return reinterpret_cast<std::uint64_t>(record);
}

std::uint64_t TestScore::Save(const HostCall& call) {
  const auto found = loaded_.find(call.Pointer<EXTGF2005a>(0));
  if (found == loaded_.end()) return 0;
  frames_[found->second->place] = found->second->entries;
  return 1;
}

std::uint64_t TestScore::Free(const HostCall& call) { return loaded_.erase(call.Pointer<EXTGF2005a>(0)); }

std::uint64_t TestScore::LoadRecord(const HostCall& call) const {
  const auto* const key = call.Pointer<EDataKey>(1);
  const Bytes* const bytes =
      RecordAt(static_cast<std::uint32_t>(call.arguments[0]), key->recordNumber, key->recordIndex);
  if (bytes == nullptr) return 0;
  auto* const size = call.Pointer<std::int32_t>(3);
  if (auto* const data = call.Pointer<std::uint8_t>(2); data != nullptr) {
    std::copy_n(bytes->data(), std::min(bytes->size(), static_cast<std::size_t>(*size)), data);
  }
  *size = static_cast<std::int32_t>(bytes->size());
  return 1;
}

std::uint64_t TestScore::SaveRecord(const HostCall& call) {
  const auto* const key = call.Pointer<EDataKey>(1);
  const auto* const data = call.Pointer<std::uint8_t>(2);
  PutBytes(static_cast<std::uint32_t>(call.arguments[0]), key->recordNumber,
           Bytes(data, data + static_cast<std::uint32_t>(call.arguments[3])), key->recordIndex);
  return 1;
}
