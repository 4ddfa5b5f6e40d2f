#include "host/files/scorefile.h"

#include <algorithm>

#include "host/files/archive.h"
#include "host/files/content.h"
#include "host/score/ledgeredits.h"
#include "host/score/musicxml.h"
#include "host/text/inputerror.h"

namespace brvhost {

ScoreFile::ScoreFile(const std::string& path, std::uint64_t maxSize, int readers)
    : path_(path), document_(ReadFile(path)) {
  if (document_.IsEmpty()) throw InputError("the file is empty");
  if (IsArchive(document_.View())) {
    archive_ = std::move(document_);
    ArchivedScore score = ReadArchivedScore(archive_.View(), maxSize);
    member_ = std::move(score.member);
    document_ = std::move(score.content);
  }
  score_ = ReadMusicXml(document_.View(), readers);
}

std::size_t ScoreFile::ChangedEntries() const {
  return static_cast<std::size_t>(std::ranges::count_if(
      score_.entries, [this](const ScoreEntry& entry) { return entry.hidden != score_.IsHiddenInDocument(entry); }));
}

void ScoreFile::CheckChanges() const {
  WriteEdited(document_.View(), score_, [](std::string_view) {});
}

bool ScoreFile::Save(const std::string& target, const std::function<bool()>& isCancelled) const {
  SafeFile file(target);
  WriteTo(file);
  if (isCancelled()) return false;
  file.Commit();
  return true;
}

Bytes ScoreFile::EditedDocument() const {
  std::size_t size = 0;
  WriteEdited(document_.View(), score_, [&size](std::string_view piece) { size += piece.size(); });
  Bytes edited(size);
  char* end = edited.Data();
  WriteEdited(document_.View(), score_, [&end](std::string_view piece) { end = std::ranges::copy(piece, end).out; });
  return edited;
}

void ScoreFile::WriteTo(SafeFile& file) const {
  const auto writePiece = [&file](std::string_view piece) { file.Write(piece); };
  if (!IsCompressed()) return WriteEdited(document_.View(), score_, writePiece);
  if (ChangedEntries() == 0) return file.Write(archive_.View());
  file.Write(ReplaceMember(archive_.View(), member_, EditedDocument().View()));
}

}  // namespace brvhost
