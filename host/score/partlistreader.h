// Reads <part-list>: the parts' names and instruments, and their groups.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/score/details.h"
#include "host/score/subtreereader.h"
#include "host/xml/xmlreader.h"

namespace brvhost {

class PartListReader : public SubtreeReader {
 public:
  void StartElement(const char* name, const XmlAttributes& attributes) override;
  void EndElement(std::string_view text) override;

  // The names of the part with that id; none where the list does not have it, and none the second time: an id belongs
  // to one part.
  [[nodiscard]] PartNames TakeNames(const std::string& id);
  int InstrumentsOf(const std::string& id) const;
  // The groups that are closed; their parts are counted in the order of the list.
  const std::vector<PartGroup>& Groups() const { return groups_; }

 private:
  struct ListedPart {
    PartNames names;
    int instruments = 0;
  };

  void StartGroup(const XmlAttributes& attributes);

  std::vector<std::string> open_;
  std::string font_;  // of the open element
  std::map<std::string, ListedPart> parts_;
  ListedPart* part_ = nullptr;
  std::map<std::string, PartGroup> openGroups_;  // by number
  PartGroup* group_ = nullptr;
  std::vector<PartGroup> groups_;
};

}  // namespace brvhost
