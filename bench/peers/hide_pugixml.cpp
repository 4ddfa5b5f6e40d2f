// Hides the ledger lines of every note with pugixml, and keeps the rest of the document: hide-pugixml SCORE RESULT.
#include <cstring>
#include <pugixml.hpp>

namespace {

class Hider : public pugi::xml_tree_walker {
 public:
  bool for_each(pugi::xml_node& node) override {
    if (std::strcmp(node.name(), "note") != 0) return true;
    pugi::xml_attribute attribute = node.attribute("print-leger");
    if (!attribute) attribute = node.append_attribute("print-leger");
    return attribute.set_value("no");
  }
};

}  // namespace

int main(int argc, char** argv) {
  pugi::xml_document document;
  if (argc != 3 || !document.load_file(argv[1], pugi::parse_full | pugi::parse_ws_pcdata)) return 1;
  Hider hider;
  if (!document.traverse(hider)) return 1;
  return document.save_file(argv[2], "", pugi::format_raw) ? 0 : 1;
}
