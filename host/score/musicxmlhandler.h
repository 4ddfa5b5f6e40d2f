// Makes a score from the elements of MusicXML as they are read.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/score/attributesreader.h"
#include "host/score/fraction.h"
#include "host/score/musicxmlelements.h"
#include "host/score/partbuilder.h"
#include "host/score/partlistreader.h"
#include "host/score/score.h"
#include "host/xml/xmlreader.h"

namespace brvhost {

class MusicXmlHandler : public XmlHandler {
 public:
  void Begin(XmlPosition& position) override { position_ = &position; }
  void StartElement(const char* name, const XmlAttributes& attributes) override;
  void EndElement() override;
  void Text(std::string_view piece) override { text_ += piece; }

  // Whether `next`, which read what follows in the document, saw only parts, and neither of the two has a warning: then
  // the two together are what one handler would have made of both.
  bool GoesOnWith(const MusicXmlHandler& next) const;

  // The staves of all parts so far. Reading more than a score can have throws InputError.
  int Staves() const { return staves_; }

  // Takes over the parts of `next`, after its own; together they have no more staves than a score can have.
  void Append(MusicXmlHandler&& next);

  // What was read, once everything is.
  [[nodiscard]] Score TakeScore();

 private:
  struct Part {
    std::string id;
    PartBuilder builder;
    AttributesReader attributes;
  };

  void StartRoot(const char* name);
  // <part> of a partwise score, <measure> of a timewise one, or what comes before them.
  void StartOuter(const char* name, const XmlAttributes& attributes);
  // The measure of one part, whichever of the two elements contains the other.
  void StartInner(const char* name, const XmlAttributes& attributes);
  void StartMeasureChild(const char* name, const XmlAttributes& attributes);
  void StartMeasureLeaf(const char* name);
  void StartPrint(const XmlAttributes& attributes);
  void StartSubtree(SubtreeReader& reader);
  void EndSubtree();
  void StartLeaf(Leaf leaf);
  void EndLeaf();
  void EndMeasureChild();
  void EndMeasure();
  // The part that is being read has at least that many.
  void SetStaves(int staves);
  void AddStaves(int staves);
  Part* NewPart(const char* id);
  // The part of a timewise score; parts count in the order in which they first appear.
  Part* PartWithId(const char* id);

  XmlPosition* position_ = nullptr;
  Score score_;
  std::deque<Part> parts_;
  int staves_ = 0;
  MeasureNumber measureNumber_;  // of the measure of a timewise score
  std::unordered_map<std::string, Part*> partsById_;
  PartListReader partList_;

  int depth_ = 0;
  bool timewise_ = false;
  bool inBody_ = false;
  bool sawOthers_ = false;  // other elements than parts, or measures of a timewise score
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

}  // namespace brvhost
