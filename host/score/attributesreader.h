// Reads <attributes>: the key, the meter, and the transposition of a part.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/score/details.h"
#include "host/score/subtreereader.h"
#include "host/xml/xmlreader.h"

namespace brvhost {

class AttributesReader : public SubtreeReader {
 public:
  void StartElement(const char* name, const XmlAttributes& attributes) override;
  void EndElement(std::string_view text) override;

  // Called at the start of a measure, and at each of its <attributes>: whether these hold from the measure's barline
  // on, or only from the next.
  void BeginMeasure();
  void BeginAttributes(bool atBarline) { atBarline_ = atBarline; }
  // A page starts with the measure that is being read.
  void BeginPage() { details_.newPages.push_back(static_cast<int>(details_.measures.size())); }

  PartDetails& Details() { return details_; }

 private:
  void EndKey();
  void EndMeter();
  void EndTransposition();

  std::vector<std::string> open_;  // the open elements
  int staff_ = 0;                  // that the outermost open element is for; 0: all
  WrittenKey key_;
  std::optional<Meter> meter_;  // that is being read; null: too large for a meter
  int beats_ = 0;               // of the part of the meter that is being read
  Transposition transposition_;
  bool hasSteps_ = false;
  int octaves_ = 0;
  bool atBarline_ = true;
  MeasureState state_;
  PartDetails details_;
};

}  // namespace brvhost
