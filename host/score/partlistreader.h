// Reads <part-list>: the parts' names and instruments, and their groups.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/score/details.h"
#include "host/score/subtreereader.h"

namespace brvhost {

struct ListedPart {
  PartNames names;
  int instruments = 0;
};

class PartListReader : public SubtreeReader {
 public:
  void StartElement(const char* name, const XmlAttributes& attributes) override;
  void EndElement(std::string_view text) override;

  // The part of that id; one without names where the list does not have it.
  ListedPart PartWithId(const std::string& id) const;
  // The groups that are closed, by the order of their parts in the list.
  const std::vector<PartGroup>& Groups() const { return groups_; }

 private:
  void StartGroup(const XmlAttributes& attributes);

  std::vector<std::string> open_;
  std::string font_;  // of the text under way
  std::map<std::string, ListedPart> parts_;
  ListedPart* part_ = nullptr;
  std::map<std::string, PartGroup> openGroups_;  // by number
  PartGroup* group_ = nullptr;
  std::vector<PartGroup> groups_;
};

}  // namespace brvhost
