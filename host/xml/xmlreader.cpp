#include "host/xml/xmlreader.h"

#include <expat.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>

#include "host/xml/xmlencoding.h"

namespace brvhost {
namespace {

constexpr std::size_t kChunk = 1 << 16;

class Reader : public XmlPosition {
 public:
  explicit Reader(XmlHandler& handler) : handler_(handler), parser_(XML_ParserCreate(nullptr), XML_ParserFree) {
    if (parser_ == nullptr) throw std::bad_alloc();
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), OnStart, OnEnd);
    XML_SetUnknownEncodingHandler(parser_.get(), DescribeEncoding, nullptr);
  }

  void Read(std::string_view document) {
    handler_.Begin(*this);
    do {
      const std::size_t size = std::min(document.size(), kChunk);
      ReadChunk(document.substr(0, size), size == document.size());
      document.remove_prefix(size);
    } while (!document.empty());
  }

  TextPlace Place() const override {
    return {XML_GetCurrentLineNumber(parser_.get()), XML_GetCurrentColumnNumber(parser_.get()) + 1};
  }

  std::uint64_t Offset() const override { return static_cast<std::uint64_t>(XML_GetCurrentByteIndex(parser_.get())); }

  void WantText(bool wanted) override { XML_SetCharacterDataHandler(parser_.get(), wanted ? OnText : nullptr); }

 private:
  void ReadChunk(std::string_view chunk, bool last) {
    void* const room = XML_GetBuffer(parser_.get(), static_cast<int>(chunk.size()));
    if (room == nullptr) throw std::bad_alloc();
    std::memcpy(room, chunk.data(), chunk.size());
    if (XML_ParseBuffer(parser_.get(), static_cast<int>(chunk.size()), last) == XML_STATUS_OK) return;
    if (failure_) std::rethrow_exception(failure_);
    throw InputError(Explanation(), Place());
  }

  std::string Explanation() const {
    const XML_Error error = XML_GetErrorCode(parser_.get());
    if (error == XML_ERROR_NO_ELEMENTS || error == XML_ERROR_UNCLOSED_TOKEN) return "the XML ends too early";
    return std::string("not well-formed XML: ").append(XML_ErrorString(error));
  }

  // No exception may pass through the parser, which is C: it is kept, and thrown again outside.
  template <class Call>
  static void Guarded(void* reader, Call call) {
    auto& self = *static_cast<Reader*>(reader);
    if (self.failure_) return;
    try {
      call(self.handler_);
    } catch (const InputError& error) {
      self.Stop(std::make_exception_ptr(error.place.line == 0 ? InputError(error.what(), self.Place()) : error));
    } catch (...) {
      self.Stop(std::current_exception());
    }
  }

  void Stop(std::exception_ptr failure) {
    failure_ = std::move(failure);
    XML_StopParser(parser_.get(), XML_FALSE);
  }

  static void OnStart(void* reader, const char* name, const char** attributes) {
    auto& self = *static_cast<Reader*>(reader);
    const int count = XML_GetSpecifiedAttributeCount(self.parser_.get());
    Guarded(reader, [&](XmlHandler& handler) { handler.StartElement(name, XmlAttributes(attributes, count)); });
  }

  static void OnEnd(void* reader, const char*) {
    Guarded(reader, [](XmlHandler& handler) { handler.EndElement(); });
  }

  static void OnText(void* reader, const char* text, int length) {
    Guarded(reader, [&](XmlHandler& handler) { handler.Text({text, static_cast<std::size_t>(length)}); });
  }

  XmlHandler& handler_;
  std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser_;
  std::exception_ptr failure_;
};

}  // namespace

void ReadXml(std::string_view document, XmlHandler& handler) { Reader(handler).Read(document); }

}  // namespace brvhost
