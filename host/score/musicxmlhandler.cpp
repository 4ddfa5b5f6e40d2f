#include "host/score/musicxmlhandler.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <tuple>
#include <utility>
#include <vector>

#include "host/text/blanks.h"
#include "host/text/inputerror.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

// The depth of elements in the document.
enum Depth { kRoot = 1, kOuter, kInner, kMeasureChild, kMeasureLeaf };

void KeepGreatest(std::vector<std::int32_t>& lengths, const std::vector<std::int32_t>& others) {
  lengths.resize(std::max(lengths.size(), others.size()));
  for (std::size_t i = 0; i < others.size(); ++i) lengths[i] = std::max(lengths[i], others[i]);
}

MeasureNumber NumberFrom(const XmlAttributes& attributes) {
  const char* const number = attributes.Find("number");
  const char* const implicit = attributes.Find("implicit");
  return {std::string(number == nullptr ? "" : WithoutBlanks(number)),
          implicit == nullptr || !SameName(implicit, "yes")};
}

}  // namespace

void MusicXmlHandler::StartElement(const char* name, const XmlAttributes& attributes) {
  if (subtree_ != nullptr) {
    text_.clear();
    subtree_->StartElement(name, attributes);
  }
  switch (++depth_) {
    case kRoot:
      return StartRoot(name);
    case kOuter:
      return StartOuter(name, attributes);
    case kInner:
      return StartInner(name, attributes);
    case kMeasureChild:
      if (inMeasure_) StartMeasureChild(name, attributes);
      return;
    case kMeasureLeaf:
      return StartMeasureLeaf(name);
    default:
      return;
  }
}

void MusicXmlHandler::EndElement() {
  if (leaf_ != Leaf::kNone && depth_ == leafDepth_) EndLeaf();
  if (subtree_ != nullptr && depth_ == subtreeDepth_) EndSubtree();
  if (subtree_ != nullptr) subtree_->EndElement(text_);
  if (depth_ == kMeasureChild && inMeasure_) EndMeasureChild();
  if (depth_ == kInner && inMeasure_) EndMeasure();
  --depth_;
}

void MusicXmlHandler::StartRoot(const char* name) {
  score_.units = position_->Units();
  timewise_ = SameName(name, "score-timewise");
  if (IsRootOfScore(name)) return;
  throw InputError(std::string("not MusicXML: the root element is <").append(Excerpt(name)).append(">"));
}

void MusicXmlHandler::StartOuter(const char* name, const XmlAttributes& attributes) {
  if (SameName(name, "part-list")) StartSubtree(partList_);
  inBody_ = SameName(name, timewise_ ? "measure" : "part");
  if (!inBody_) sawOthers_ = true;
  if (inBody_ && !timewise_) part_ = NewPart(attributes.Find("id"));
  if (inBody_ && timewise_) measureNumber_ = NumberFrom(attributes);
}

void MusicXmlHandler::StartInner(const char* name, const XmlAttributes& attributes) {
  if (!inBody_ || !SameName(name, timewise_ ? "part" : "measure")) return;
  if (timewise_) part_ = PartWithId(attributes.Find("id"));
  if (part_ == &parts_.front()) score_.measureNumbers.push_back(timewise_ ? measureNumber_ : NumberFrom(attributes));
  inMeasure_ = true;
  part_->builder.BeginMeasure();
  part_->attributes.BeginMeasure();
}

void MusicXmlHandler::StartMeasureChild(const char* name, const XmlAttributes& attributes) {
  child_ = ChildNamed(name);
  duration_ = {};
  if (child_ == Child::kAttributes) {
    part_->attributes.BeginAttributes(part_->builder.IsAtBarline());
    return StartSubtree(part_->attributes);
  }
  if (SameName(name, "print")) StartPrint(attributes);
  if (child_ != Child::kNote) return;
  note_ = {};
  isChord_ = false;
  voice_.assign(1, '1');
  note_.note.offset = position_->Offset();
  const char* const leger = attributes.Find("print-leger");
  if (leger != nullptr) {
    note_.note.attribute =
        static_cast<std::uint8_t>(SameName(leger, "no") ? LegerAttribute::kNo : LegerAttribute::kYes);
  }
}

void MusicXmlHandler::StartMeasureLeaf(const char* name) {
  if (!inMeasure_ || child_ == Child::kOther) return;
  const Leaf leaf = LeafNamed(child_, name);
  if (leaf != Leaf::kNone) return StartLeaf(leaf);
  if (child_ != Child::kNote) return;
  if (SameName(name, "chord")) isChord_ = true;
  if (SameName(name, "rest")) note_.isRest = true;
}

void MusicXmlHandler::StartPrint(const XmlAttributes& attributes) {
  const char* const newPage = attributes.Find("new-page");
  if (newPage != nullptr && SameName(newPage, "yes")) part_->attributes.BeginPage();
}

void MusicXmlHandler::StartSubtree(SubtreeReader& reader) {
  subtree_ = &reader;
  subtreeDepth_ = depth_;
  position_->WantText(true);
}

void MusicXmlHandler::EndSubtree() {
  subtree_ = nullptr;
  position_->WantText(false);
}

void MusicXmlHandler::StartLeaf(Leaf leaf) {
  leaf_ = leaf;
  leafDepth_ = depth_;
  text_.clear();
  position_->WantText(true);
}

void MusicXmlHandler::EndLeaf() {
  position_->WantText(subtree_ != nullptr);
  switch (leaf_) {
    case Leaf::kDuration:
      duration_ = NumberFrom0("a duration", text_);
      break;
    case Leaf::kVoice:
      voice_ = WithoutBlanks(text_);
      break;
    case Leaf::kStaff:
      note_.staff = StaffNumber("a staff", text_, 1);
      SetStaves(note_.staff);
      break;
    case Leaf::kDivisions:
      part_->builder.SetDivisions(PositiveNumber("the number of divisions", text_));
      break;
    case Leaf::kStaves:
      SetStaves(StaffNumber("the number of staves", text_, 0));
      break;
    case Leaf::kNone:
      break;
  }
  leaf_ = Leaf::kNone;
}

void MusicXmlHandler::EndMeasureChild() {
  PartBuilder& part = part_->builder;
  if (child_ == Child::kForward) part.Advance(duration_);
  if (child_ == Child::kBackup && !part.GoBack(duration_)) {
    const TextPlace place = position_->Place();
    score_.warnings.push_back(
        {place.line, place.column, "a backup goes back before the barline; it is taken to go back to it"});
  }
  if (child_ == Child::kNote && isChord_) part.AddToChord(note_, voice_, duration_);
  if (child_ == Child::kNote && !isChord_) part.AddNote(note_, voice_, duration_);
  child_ = Child::kOther;
}

void MusicXmlHandler::EndMeasure() {
  part_->builder.EndMeasure(score_);
  inMeasure_ = false;
}

void MusicXmlHandler::SetStaves(int staves) {
  const int before = part_->builder.Staves();
  AddStaves(std::max(staves - before, 0));
  part_->builder.SetStaves(staves);
}

void MusicXmlHandler::AddStaves(int staves) {
  staves_ += staves;
  if (staves_ > kMaxStaves) throw InputError("more than 32767 staves");
}

MusicXmlHandler::Part* MusicXmlHandler::NewPart(const char* id) {
  parts_.push_back({id == nullptr ? "" : id, {}, {}});
  AddStaves(parts_.back().builder.Staves());
  return &parts_.back();
}

MusicXmlHandler::Part* MusicXmlHandler::PartWithId(const char* id) {
  Part*& part = partsById_[id == nullptr ? "" : id];
  if (part == nullptr) part = NewPart(id);
  return part;
}

bool MusicXmlHandler::GoesOnWith(const MusicXmlHandler& next) const {
  return !timewise_ && !next.timewise_ && !next.sawOthers_ && score_.warnings.empty() && next.score_.warnings.empty();
}

void MusicXmlHandler::Append(MusicXmlHandler&& next) {
  const auto notes = static_cast<std::uint32_t>(score_.notes.size());
  const auto entries = static_cast<std::uint32_t>(score_.entries.size());
  if (parts_.empty()) score_.measureNumbers = std::move(next.score_.measureNumbers);
  for (ScoreEntry& entry : next.score_.entries) entry.firstNote += notes;
  for (Part& part : next.parts_) {
    for (ScoreFrame& frame : part.builder.Frames()) frame.firstEntry += entries;
    parts_.push_back(std::move(part));
  }
  std::ranges::copy(next.score_.notes, std::back_inserter(score_.notes));
  std::ranges::copy(next.score_.entries, std::back_inserter(score_.entries));
  next = MusicXmlHandler();
}

Score MusicXmlHandler::TakeScore() {
  for (Part& part : parts_) {
    ScorePart known;
    known.id = part.id;
    known.names = partList_.TakeNames(part.id);
    known.instruments = partList_.InstrumentsOf(part.id);
    known.details = std::move(part.attributes.Details());
    known.staves = part.builder.Staves();
    known.voices = part.builder.Voices();
    known.firstStaff = score_.staves + 1;
    for (ScoreFrame& frame : part.builder.Frames()) {
      frame.staff = static_cast<std::uint16_t>(frame.staff + score_.staves);
      score_.frames.push_back(frame);
    }
    part.builder.Frames() = {};
    score_.staves += known.staves;
    score_.measures = std::max(score_.measures, part.builder.Measures());
    KeepGreatest(score_.measureLengths, part.builder.MeasureLengths());
    score_.layers = std::max(score_.layers, part.builder.Layers());
    score_.parts.push_back(std::move(known));
  }
  score_.groups = partList_.Groups();
  std::ranges::sort(score_.frames, {},
                    [](const ScoreFrame& frame) { return std::make_tuple(frame.staff, frame.layer, frame.measure); });
  return std::move(score_);
}

}  // namespace brvhost
