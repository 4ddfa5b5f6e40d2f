#include "host/xml/elementplace.h"

#include <cstddef>
#include <utility>

#include "host/xml/xmlreader.h"

namespace brvhost {
namespace {

// Ends the reading at the last of the elements.
struct FoundAll {};

class Finder : public XmlHandler {
 public:
  explicit Finder(std::span<const std::uint64_t> offsets) : offsets_(offsets), places_(offsets.size()) {}

  void Begin(XmlPosition& position) override {
    position_ = &position;
    position.WantText(false);
  }

  void StartElement(const char*, const XmlAttributes&) override {
    const std::uint64_t offset = position_->Offset();
    while (found_ < offsets_.size() && offsets_[found_] < offset) ++found_;
    while (found_ < offsets_.size() && offsets_[found_] == offset) places_[found_++] = position_->Place();
    if (found_ == offsets_.size()) throw FoundAll();
  }

  void EndElement() override {}
  void Text(std::string_view) override {}

  std::vector<TextPlace> Take() { return std::move(places_); }

 private:
  const std::span<const std::uint64_t> offsets_;
  std::vector<TextPlace> places_;
  std::size_t found_ = 0;  // or passed
  XmlPosition* position_ = nullptr;
};

}  // namespace

std::vector<TextPlace> PlacesOfElements(std::string_view document, std::span<const std::uint64_t> offsets) {
  Finder finder(offsets);
  try {
    ReadXml(document, finder);
  } catch (const FoundAll&) {
    // what is after it is of no interest
  }
  return finder.Take();
}

TextPlace PlaceOfElement(std::string_view document, std::uint64_t offset) {
  return PlacesOfElements(document, std::span(&offset, 1)).front();
}

}  // namespace brvhost
