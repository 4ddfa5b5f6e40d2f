#include "host/files/scorefile.h"

#include <algorithm>

#include "host/files/archive.h"
#include "host/files/content.h"
#include "host/files/safefile.h"
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

void ScoreFile::Save(const std::string& target) const {
  if (!IsCompressed()) {
    SafeFile file(target);
    WriteEdited(document_.View(), score_, [&file](std::string_view piece) { file.Write(piece); });
    return file.Commit();
  }
  if (ChangedEntries() == 0) {
    SafeFile file(target);
    file.Write(archive_.View());
    return file.Commit();
  }
  std::string edited;
  edited.reserve(document_.Size());
  WriteEdited(document_.View(), score_, [&edited](std::string_view piece) { edited.append(piece); });
  const std::string archive = ReplaceMember(archive_.View(), member_, edited);
  SafeFile file(target);
  file.Write(archive);
  file.Commit();
}

}  // namespace brvhost
