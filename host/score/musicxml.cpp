#include "host/score/musicxml.h"

#include <utility>

#include "host/score/musicxmlhandler.h"
#include "host/score/partsections.h"

namespace brvhost {

Score ReadMusicXml(std::string_view document, int readers) {
  if (readers > 1) {
    if (auto score = ReadPartsApart(document, readers)) return std::move(*score);
  }
  MusicXmlHandler handler;
  ReadXml(document, handler);
  return handler.TakeScore();
}

}  // namespace brvhost
