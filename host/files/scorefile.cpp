#include "host/files/scorefile.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "host/files/archive.h"
#include "host/files/safefile.h"
#include "host/score/musicxml.h"
#include "host/text/inputerror.h"

namespace brvhost {

ScoreFile::ScoreFile(const InputFile& input, std::uint64_t maxSize, int readers)
    : path_(input.Path()), document_(input.Read(maxSize)) {
  if (document_.IsEmpty()) throw InputError("the file is empty");
  if (IsArchive(document_.View())) {
    archive_ = std::move(document_);
    ArchivedScore score = ReadArchivedScore(archive_.View(), maxSize);
    member_ = std::move(score.member);
    document_ = std::move(score.content);
  }
  score_ = ReadMusicXml(document_.View(), readers);
}

std::optional<std::vector<std::string>> ScoreFile::Save(const LedgerEdits& edits, const Target& target,
                                                        const std::function<bool()>& isCancelled) const {
  SafeFile file(target);
  if (IsCompressed() && edits.ChangedEntries() == 0) {
    file.Write(archive_.View());
  } else if (IsCompressed()) {
    file.Write(ArchiveWith(edits));
  } else {
    edits.Write([&file](std::string_view piece) { file.Write(piece); });
  }
  if (isCancelled()) return std::nullopt;
  return file.Commit();
}

std::string ScoreFile::ArchiveWith(const LedgerEdits& edits) const {
  Bytes edited(edits.EditedSize());
  char* end = edited.Data();
  edits.Write([&end](std::string_view piece) { end = std::ranges::copy(piece, end).out; });
  return ReplaceMember(archive_.View(), member_, edited.View());
}

}  // namespace brvhost
