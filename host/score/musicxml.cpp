#include "host/score/musicxml.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <string>
#include <tuple>
#include <unordered_map>

#include "host/score/attributesreader.h"
#include "host/score/fraction.h"
#include "host/score/inputerror.h"
#include "host/score/partbuilder.h"
#include "host/score/partlistreader.h"
#include "host/text/blanks.h"
#include "host/xml/xmlreader.h"

namespace brvhost {
namespace {

// What a child of a measure is to the clock.
enum class Child { kOther, kNote, kBackup, kForward, kAttributes };

// The elements whose text is read.
enum class Leaf { kNone, kDuration, kVoice, kStaff, kDivisions, kStaves };

// How deep the elements stand in the document.
enum Depth { kRoot = 1, kOuter, kInner, kMeasureChild, kMeasureLeaf };

bool Is(const char* name, const char* wanted) { return std::strcmp(name, wanted) == 0; }

Child ChildNamed(const char* name) {
  if (Is(name, "note")) return Child::kNote;
  if (Is(name, "backup")) return Child::kBackup;
  if (Is(name, "forward")) return Child::kForward;
  if (Is(name, "attributes")) return Child::kAttributes;
  return Child::kOther;
}

Leaf LeafNamed(Child parent, const char* name) {
  switch (parent) {
    case Child::kNote:
      if (Is(name, "voice")) return Leaf::kVoice;
      if (Is(name, "staff")) return Leaf::kStaff;
      [[fallthrough]];
    case Child::kBackup:
    case Child::kForward:
      return Is(name, "duration") ? Leaf::kDuration : Leaf::kNone;
    case Child::kAttributes:
      if (Is(name, "divisions")) return Leaf::kDivisions;
      return Is(name, "staves") ? Leaf::kStaves : Leaf::kNone;
    case Child::kOther:
      break;
  }
  return Leaf::kNone;
}

[[noreturn]] void ThrowBadNumber(const char* what, const std::string& text) {
  throw InputError(std::string(what).append(" is \"").append(WithoutBlanks(text)).append("\""));
}

Fraction PositiveNumber(const char* what, const std::string& text) {
  const auto number = ParseDecimal(text);
  if (!number || number->numerator <= 0) ThrowBadNumber(what, text);
  return *number;
}

Fraction NumberFrom0(const char* what, const std::string& text) {
  const auto number = ParseDecimal(text);
  if (!number || number->IsNegative()) ThrowBadNumber(what, text);
  return *number;
}

int StaffNumber(const char* what, const std::string& text, int least) {
  const auto number = ParseDecimal(text);
  if (!number || number->denominator != 1 || number->numerator < least) ThrowBadNumber(what, text);
  if (number->numerator > kMostStaves) throw InputError("more than 32767 staves");
  return static_cast<int>(number->numerator);
}

class MusicXmlHandler : public XmlHandler {
 public:
  void Begin(XmlPosition& position) override { position_ = &position; }

  void StartElement(const char* name, const XmlAttributes& attributes) override {
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

  void EndElement() override {
    if (leaf_ != Leaf::kNone && depth_ == leafDepth_) EndLeaf();
    if (subtree_ != nullptr && depth_ == subtreeDepth_) EndSubtree();
    if (subtree_ != nullptr) subtree_->EndElement(text_);
    if (depth_ == kMeasureChild && inMeasure_) EndMeasureChild();
    if (depth_ == kInner && inMeasure_) EndMeasure();
    --depth_;
  }

  void Text(std::string_view piece) override { text_ += piece; }

  Score TakeScore();

 private:
  void StartRoot(const char* name) {
    timewise_ = Is(name, "score-timewise");
    if (timewise_ || Is(name, "score-partwise")) return;
    throw InputError(std::string("not MusicXML: the root element is <").append(name).append(">"));
  }

  // <part> of a partwise score, <measure> of a timewise one, or what stands before them.
  void StartOuter(const char* name, const XmlAttributes& attributes) {
    if (Is(name, "part-list")) StartSubtree(partList_);
    inBody_ = Is(name, timewise_ ? "measure" : "part");
    if (inBody_ && !timewise_) part_ = NewPart(attributes.Find("id"));
  }

  // The measure of one part, whichever of the two elements stands within the other.
  void StartInner(const char* name, const XmlAttributes& attributes) {
    if (!inBody_ || !Is(name, timewise_ ? "part" : "measure")) return;
    if (timewise_) part_ = PartWithId(attributes.Find("id"));
    inMeasure_ = true;
    part_->builder.BeginMeasure();
    part_->attributes.BeginMeasure();
  }

  void StartMeasureChild(const char* name, const XmlAttributes& attributes) {
    child_ = ChildNamed(name);
    duration_ = {};
    if (child_ == Child::kAttributes) {
      part_->attributes.BeginAttributes(part_->builder.IsAtBarline());
      return StartSubtree(part_->attributes);
    }
    if (Is(name, "print")) StartPrint(attributes);
    if (child_ != Child::kNote) return;
    note_ = {};
    isChord_ = false;
    voice_.assign(1, '1');
    note_.note.offset = position_->Offset();
    const char* const leger = attributes.Find("print-leger");
    if (leger != nullptr) {
      note_.note.attribute = static_cast<std::uint8_t>(Is(leger, "no") ? LegerAttribute::kNo : LegerAttribute::kYes);
    }
    const char* const object = attributes.Find("print-object");
    note_.note.invisible = object != nullptr && Is(object, "no");
  }

  void StartMeasureLeaf(const char* name) {
    if (!inMeasure_ || child_ == Child::kOther) return;
    const Leaf leaf = LeafNamed(child_, name);
    if (leaf != Leaf::kNone) return StartLeaf(leaf);
    if (child_ != Child::kNote) return;
    if (Is(name, "chord")) isChord_ = true;
    if (Is(name, "rest")) note_.isRest = true;
  }

  void StartPrint(const XmlAttributes& attributes) {
    const char* const newPage = attributes.Find("new-page");
    if (newPage != nullptr && Is(newPage, "yes")) part_->attributes.BeginPage();
  }

  void StartSubtree(SubtreeReader& reader) {
    subtree_ = &reader;
    subtreeDepth_ = depth_;
    position_->WantText(true);
  }

  void EndSubtree() {
    subtree_ = nullptr;
    position_->WantText(false);
  }

  void StartLeaf(Leaf leaf) {
    leaf_ = leaf;
    leafDepth_ = depth_;
    text_.clear();
    position_->WantText(true);
  }

  void EndLeaf() {
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
        break;
      case Leaf::kDivisions:
        part_->builder.SetDivisions(PositiveNumber("the number of divisions", text_));
        break;
      case Leaf::kStaves:
        part_->builder.SetStaves(StaffNumber("the number of staves", text_, 0));
        break;
      case Leaf::kNone:
        break;
    }
    leaf_ = Leaf::kNone;
  }

  void EndMeasureChild() {
    PartBuilder& part = part_->builder;
    if (child_ == Child::kForward) part.Advance(duration_);
    if (child_ == Child::kBackup && !part.GoBack(duration_)) {
      const TextPlace place = position_->Place();
      score_.warnings.push_back(
          {place.line, place.column, "a backup leads before the barline; it is taken to lead to it"});
    }
    if (child_ == Child::kNote) {
      isChord_ ? part.AddToChord(note_, voice_, duration_) : part.AddNote(note_, voice_, duration_);
    }
    child_ = Child::kOther;
  }

  void EndMeasure() {
    part_->builder.EndMeasure(score_);
    inMeasure_ = false;
  }

  struct Part {
    std::string id;
    PartBuilder builder;
    AttributesReader attributes;
  };

  Part* NewPart(const char* id) {
    parts_.push_back({id == nullptr ? "" : id, {}, {}});
    return &parts_.back();
  }

  // The part of a timewise score; parts count in the order in which they first appear.
  Part* PartWithId(const char* id) {
    Part*& part = partsById_[id == nullptr ? "" : id];
    if (part == nullptr) part = NewPart(id);
    return part;
  }

  XmlPosition* position_ = nullptr;
  Score score_;
  std::deque<Part> parts_;
  std::unordered_map<std::string, Part*> partsById_;
  PartListReader partList_;

  int depth_ = 0;
  bool timewise_ = false;
  bool inBody_ = false;
  bool inMeasure_ = false;
  Part* part_ = nullptr;

  Child child_ = Child::kOther;
  NoteElement note_;
  std::string voice_;
  bool isChord_ = false;
  Fraction duration_;  // a grace note has none, and leaves the clock where it is

  SubtreeReader* subtree_ = nullptr;
  int subtreeDepth_ = 0;
  Leaf leaf_ = Leaf::kNone;
  int leafDepth_ = 0;
  std::string text_;
};

Score MusicXmlHandler::TakeScore() {
  for (Part& part : parts_) {
    const ListedPart listed = partList_.PartWithId(part.id);
    ScorePart known;
    known.id = part.id;
    known.names = listed.names;
    known.instruments = listed.instruments;
    known.details = std::move(part.attributes.Details());
    known.staves = part.builder.Staves();
    known.firstStaff = score_.staves + 1;
    for (ScoreFrame& frame : part.builder.Frames()) {
      frame.staff = static_cast<std::uint16_t>(frame.staff + score_.staves);
      score_.frames.push_back(frame);
    }
    part.builder.Frames() = {};
    score_.staves += known.staves;
    if (score_.staves > kMostStaves) throw InputError("more than 32767 staves");
    score_.measures = std::max(score_.measures, part.builder.Measures());
    score_.layers = std::max(score_.layers, part.builder.Layers());
    score_.parts.push_back(std::move(known));
  }
  score_.groups = partList_.Groups();
  std::ranges::sort(score_.frames, {},
                    [](const ScoreFrame& frame) { return std::make_tuple(frame.staff, frame.layer, frame.measure); });
  return std::move(score_);
}

}  // namespace

Score ReadMusicXml(std::string_view document) {
  MusicXmlHandler handler;
  ReadXml(document, handler);
  return handler.TakeScore();
}

}  // namespace brvhost
