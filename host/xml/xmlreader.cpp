#include "host/xml/xmlreader.h"

#include <expat.h>
#include <strings.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <initializer_list>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include "host/xml/unreadencoding.h"
#include "host/xml/xmlencoding.h"
#include "host/xml/xmlreason.h"

namespace brvhost {
namespace {

// Far more than scores have. Each level takes memory until its element ends.
constexpr int kMaxDepth = 256;

// A "<" and a name start here, according to the parser, however it came to take the bytes so. No name has a character
// 0.
CodeUnits UnitsOfTag(std::string_view tag) {
  using namespace std::string_view_literals;
  if (tag.starts_with("\0<"sv)) return CodeUnits::kUtf16BigEndian;
  return tag.starts_with("<\0"sv) ? CodeUnits::kUtf16LittleEndian : CodeUnits::kBytes;
}

class Reader : public XmlPosition {
 public:
  explicit Reader(XmlHandler& handler) : handler_(handler), parser_(XML_ParserCreate(nullptr), XML_ParserFree) {
    if (parser_ == nullptr) throw std::bad_alloc();
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), OnStart, OnEnd);
    XML_SetUnknownEncodingHandler(parser_.get(), DescribeEncoding, nullptr);
  }

  void Read(std::string_view document, std::size_t maxPieceSize) {
    start_ = document;
    handler_.Begin(*this);
    while (document.size() > maxPieceSize) {
      Parse({document.substr(0, maxPieceSize)}, false);
      document.remove_prefix(maxPieceSize);
    }
    Parse({document}, true);
  }

  void Read(const XmlSection& section, std::size_t maxPieceSize) {
    if (section.content.size() > maxPieceSize) throw InputError("the section is too large");
    start_ = section.opening.empty() ? section.content : section.opening;
    isSection_ = true;
    shift_ = section.offset - section.opening.size();
    XML_SetXmlDeclHandler(parser_.get(), RefuseOtherEncodings);
    XML_SetStartDoctypeDeclHandler(parser_.get(), RefuseDeclarations);
    handler_.Begin(*this);
    Parse({section.opening, section.content, section.closing}, true);
  }

  TextPlace Place() const override {
    return {XML_GetCurrentLineNumber(parser_.get()), XML_GetCurrentColumnNumber(parser_.get()) + 1};
  }

  std::uint64_t Offset() const override {
    return shift_ + static_cast<std::uint64_t>(XML_GetCurrentByteIndex(parser_.get()));
  }

  CodeUnits Units() const override { return *units_; }

  void WantText(bool wanted) override { XML_SetCharacterDataHandler(parser_.get(), wanted ? OnText : nullptr); }

 private:
  // Parses the texts one after another, as one piece of the document.
  void Parse(std::initializer_list<std::string_view> texts, bool last) {
    std::size_t size = 0;
    for (const std::string_view text : texts) size += text.size();
    // For no bytes the parser has no buffer, which would look like a lack of memory.
    const std::size_t capacity = std::max(size, std::size_t{1});
    auto* buffer = static_cast<char*>(XML_GetBuffer(parser_.get(), static_cast<int>(capacity)));
    if (buffer == nullptr) throw std::bad_alloc();
    for (const std::string_view text : texts) buffer = std::ranges::copy(text, buffer).out;
    if (XML_ParseBuffer(parser_.get(), static_cast<int>(size), last) == XML_STATUS_OK) return;
    if (failure_) std::rethrow_exception(failure_);
    if (XML_GetErrorCode(parser_.get()) == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
    throw InputError(Explanation(), Place());
  }

  std::string Explanation() const {
    const XML_Error error = XML_GetErrorCode(parser_.get());
    if (const char* const encoding = units_ ? nullptr : UnreadEncodingOf(start_)) {
      return std::string("a document in ").append(encoding).append(" cannot be read; one in UTF-8 or UTF-16 can");
    }
    if (error == XML_ERROR_NO_ELEMENTS || error == XML_ERROR_UNCLOSED_TOKEN) return "the XML ends too early";
    return "not well-formed XML: " + XmlReason(error);
  }

  // No exception may pass through the parser, which is C: it is kept, and thrown again outside.
  template <class Call>
  static void Guarded(void* reader, Call call) {
    auto& self = *static_cast<Reader*>(reader);
    if (self.failure_) return;
    try {
      self.Placed(call);
    } catch (...) {
      self.failure_ = std::current_exception();
      XML_StopParser(self.parser_.get(), XML_FALSE);
    }
  }

  // Adds the place to an error that the call reports without one.
  template <class Call>
  void Placed(Call call) const {
    try {
      call(handler_);
    } catch (const InputError& error) {
      if (error.place.line != 0) throw;
      throw InputError(error.what(), Place());
    }
  }

  static void OnStart(void* reader, const char* name, const char** attributes) {
    auto& self = *static_cast<Reader*>(reader);
    if (!self.units_) self.OnRoot();
    if (++self.depth_ > kMaxDepth) return Refuse(reader, "elements are nested more than 256 deep");
    const int count = XML_GetSpecifiedAttributeCount(self.parser_.get());
    Guarded(reader, [&](XmlHandler& handler) { handler.StartElement(name, XmlAttributes(attributes, count)); });
  }

  void OnRoot() {
    const auto index = static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_.get()));
    units_ = UnitsOfTag(start_.substr(std::min(index, start_.size())));
    if (isSection_ && units_ != CodeUnits::kBytes) Refuse(this, "the section is not in UTF-8");
  }

  static void OnEnd(void* reader, const char*) {
    --static_cast<Reader*>(reader)->depth_;
    Guarded(reader, [](XmlHandler& handler) { handler.EndElement(); });
  }

  static void OnText(void* reader, const char* text, int length) {
    Guarded(reader, [&](XmlHandler& handler) { handler.Text({text, static_cast<std::size_t>(length)}); });
  }

  static void Refuse(void* reader, const char* reason) {
    Guarded(reader, [reason](XmlHandler&) { throw InputError(reason); });
  }

  static void RefuseOtherEncodings(void* reader, const char*, const char* encoding, int) {
    if (encoding == nullptr || strcasecmp(encoding, "UTF-8") == 0) return;
    Refuse(reader, "the section is not in UTF-8");
  }

  static void RefuseDeclarations(void* reader, const char*, const char*, const char*, int hasDeclarations) {
    if (hasDeclarations != 0) Refuse(reader, "the section declares entities or attributes");
  }

  XmlHandler& handler_;
  std::string_view start_;          // of what is parsed, its first tag included
  std::optional<CodeUnits> units_;  // known once the first tag is there
  int depth_ = 0;                   // of the elements that are open
  bool isSection_ = false;
  std::uint64_t shift_ = 0;  // from offsets in what is parsed to those in the document
  std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser_;
  std::exception_ptr failure_;
};

}  // namespace

void ReadXml(std::string_view document, XmlHandler& handler, std::size_t maxPieceSize) {
  Reader(handler).Read(document, maxPieceSize);
}

void ReadXmlSection(const XmlSection& section, XmlHandler& handler, std::size_t maxPieceSize) {
  Reader(handler).Read(section, maxPieceSize);
}

}  // namespace brvhost
