#include "host/score/partsections.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <deque>
#include <future>
#include <iterator>
#include <system_error>
#include <utility>

#include "host/score/musicxmlhandler.h"
#include "host/text/inputerror.h"

namespace brvhost {
namespace {

constexpr std::string_view kRoot = "<score-partwise";
constexpr std::string_view kOpening = "<score-partwise>";
constexpr std::string_view kClosing = "</score-partwise>";
constexpr std::string_view kPart = "<part ";

// Several sections for each reader even out parts of different lengths. Each costs a parser, which pays from about a
// millisecond's work on, that is 64 KB; and since the parser copies its text, 4 MB keep the copies of a large score
// small.
constexpr std::size_t kSectionsPerReader = 4;
constexpr std::size_t kMinSectionSize = std::size_t{1} << 16;
constexpr std::size_t kMaxSectionSize = std::size_t{1} << 22;

// With memmem, because it takes a third of the time of std::string_view::find where every second character is a "<".
std::size_t NextCut(std::string_view document, std::size_t from) {
  if (from >= document.size()) return document.size();
  const void* const found = memmem(document.data() + from, document.size() - from, kPart.data(), kPart.size());
  return found == nullptr ? document.size()
                          : static_cast<std::size_t>(static_cast<const char*>(found) - document.data());
}

// The handlers that read the sections, in order, or none where a section is not well formed or there are too many
// staves.
std::deque<MusicXmlHandler> HandlersOf(const std::vector<XmlSection>& sections, int readers) {
  std::deque<MusicXmlHandler> handlers(sections.size());
  std::atomic<std::size_t> next = 0;
  std::atomic<int> staves = 0;
  const auto readSome = [&] {
    try {
      for (std::size_t i; (i = next++) < sections.size();) {
        ReadXmlSection(sections[i], handlers[i]);
        if ((staves += handlers[i].Staves()) > kMaxStaves) throw InputError("more than 32767 staves");
      }
      return true;
    } catch (const InputError&) {
      next = sections.size();
      return false;
    }
  };
  std::vector<std::future<bool>> others;
  try {
    while (std::ssize(others) < readers - 1) others.push_back(std::async(std::launch::async, readSome));
  } catch (const std::system_error&) {
    // There are no more threads: those that run do all the work.
  }
  bool good = readSome();
  for (std::future<bool>& other : others) good &= other.get();
  if (!good) handlers.clear();
  return handlers;
}

}  // namespace

std::vector<XmlSection> PartSections(std::string_view document, std::size_t size) {
  const std::size_t firstPart = NextCut(document, 0);
  if (document.substr(0, firstPart).find(kRoot) == std::string_view::npos) return {};
  std::vector<XmlSection> sections;
  std::size_t start = 0;
  while (start < document.size()) {
    const std::size_t end = NextCut(document, std::max(firstPart + kPart.size(), start + size));
    sections.push_back({start == 0 ? "" : kOpening, document.substr(start, end - start),
                        end == document.size() ? "" : kClosing, start});
    start = end;
  }
  return sections;
}

std::optional<Score> ReadSections(const std::vector<XmlSection>& sections, int readers) {
  auto handlers = HandlersOf(sections, readers);
  if (handlers.empty()) return std::nullopt;
  MusicXmlHandler& first = handlers.front();
  for (std::size_t i = 1; i < handlers.size(); ++i) {
    if (!first.GoesOnWith(handlers[i])) return std::nullopt;
    first.Append(std::move(handlers[i]));
  }
  return first.TakeScore();
}

std::optional<Score> ReadPartsApart(std::string_view document, int readers) {
  const std::size_t share = document.size() / (static_cast<std::size_t>(readers) * kSectionsPerReader);
  const auto sections = PartSections(document, std::clamp(share, kMinSectionSize, kMaxSectionSize));
  if (sections.size() < 2) return std::nullopt;
  return ReadSections(sections, std::min(readers, static_cast<int>(sections.size())));
}

}  // namespace brvhost
