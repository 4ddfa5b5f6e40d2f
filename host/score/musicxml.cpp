#include "host/score/musicxml.h"

#include <utility>

#include "host/score/mixedchords.h"
#include "host/score/musicxmlhandler.h"
#include "host/score/partsections.h"

namespace brvhost {
namespace {

Score ReadParts(std::string_view document, int readers) {
  if (readers > 1) {
    if (auto score = ReadPartsApart(document, readers)) return std::move(*score);
  }
  MusicXmlHandler handler;
  ReadXml(document, handler);
  return handler.TakeScore();
}

}  // namespace

Score ReadMusicXml(std::string_view document, int readers) {
  Score score = ReadParts(document, readers);
  // Ahead of the others: of many warnings, only the first are shown.
  if (auto warning = WarningOfMixedChords(document, score)) score.warnings.insert(score.warnings.begin(), *warning);
  return score;
}

}  // namespace brvhost
