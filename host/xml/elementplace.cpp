#include "host/xml/elementplace.h"

#include "host/xml/xmlreader.h"

namespace brvhost {
namespace {

// Ends the reading at the element.
struct Found {
  TextPlace place;
};

class Finder : public XmlHandler {
 public:
  explicit Finder(std::uint64_t offset) : offset_(offset) {}

  void Begin(XmlPosition& position) override { position_ = &position; }
  void StartElement(const char*, const XmlAttributes&) override {
    if (position_->Offset() == offset_) throw Found{position_->Place()};
  }
  void EndElement() override {}
  void Text(std::string_view) override {}

 private:
  const std::uint64_t offset_;
  XmlPosition* position_ = nullptr;
};

}  // namespace

TextPlace PlaceOfElement(std::string_view document, std::uint64_t offset) {
  Finder finder(offset);
  try {
    ReadXml(document, finder);
  } catch (const Found& found) {
    return found.place;
  }
  return {};
}

}  // namespace brvhost
