#include "host/score/partlistreader.h"

#include <sstream>
#include <string_view>
#include <utility>

#include "host/xml/xmlreader.h"

namespace brvhost {
namespace {

std::string Value(const char* value) { return value == nullptr ? "" : value; }

// Line breaks that only serve the layout are blanks in a name.
std::string WithSingleBlanks(std::string_view text) {
  std::istringstream words{std::string(text)};
  std::string joined;
  for (std::string word; words >> word;) joined += (joined.empty() ? "" : " ") + word;
  return joined;
}

}  // namespace

void PartListReader::StartElement(const char* name, const XmlAttributes& attributes) {
  open_.emplace_back(name);
  font_ = Value(attributes.Find("font-family"));
  if (open_.back() == "score-instrument" && part_ != nullptr) ++part_->instruments;
  if (open_.size() > 1) return;
  part_ = nullptr;
  group_ = nullptr;
  if (open_.back() == "part-group") StartGroup(attributes);
  if (open_.back() != "score-part") return;
  part_ = &parts_.emplace(Value(attributes.Find("id")), ListedPart{}).first->second;
}

void PartListReader::StartGroup(const XmlAttributes& attributes) {
  const std::string number = Value(attributes.Find("number"));
  const auto nextPart = static_cast<int>(parts_.size());
  if (Value(attributes.Find("type")) == "start") {
    group_ = &(openGroups_[number] = PartGroup{{}, {}, nextPart, nextPart});
    return;
  }
  const auto found = openGroups_.find(number);
  if (found == openGroups_.end()) return;
  found->second.lastPart = nextPart - 1;
  groups_.push_back(found->second);
  openGroups_.erase(found);
}

void PartListReader::EndElement(std::string_view text) {
  const std::string name = std::move(open_.back());
  open_.pop_back();
  if (open_.size() != 1) return;
  if (name == "part-name" && part_ != nullptr) {
    part_->names.name = WithSingleBlanks(text);
    part_->names.nameFont = font_;
  }
  if (name == "part-abbreviation" && part_ != nullptr) {
    part_->names.abbreviation = WithSingleBlanks(text);
    part_->names.abbreviationFont = font_;
  }
  if (name == "group-name" && group_ != nullptr) group_->name = WithSingleBlanks(text);
  if (name == "group-symbol" && group_ != nullptr) group_->symbol = WithSingleBlanks(text);
}

PartNames PartListReader::TakeNames(const std::string& id) {
  const auto found = parts_.find(id);
  return found == parts_.end() ? PartNames{} : std::exchange(found->second.names, {});
}

int PartListReader::InstrumentsOf(const std::string& id) const {
  const auto found = parts_.find(id);
  return found == parts_.end() ? 0 : found->second.instruments;
}

}  // namespace brvhost
