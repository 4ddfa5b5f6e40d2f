#include "host/files/scorefile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "host/files/archive.h"
#include "host/files/bufferedwriter.h"
#include "host/files/outputerror.h"
#include "host/files/safefile.h"
#include "host/process/passingerror.h"
#include "host/score/musicxml.h"
#include "host/text/inputerror.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

// What an error in the document of an archive is reported with, too.
template <class Work>
auto InMember(const std::string& member, const Work& work) {
  try {
    return work();
  } catch (const InputError& error) {
    if (member.empty()) throw;
    throw InputError(Located(Excerpt(member), error.place, error.what()));
  }
}

}  // namespace

ScoreFile::ScoreFile(const InputFile& input, std::uint64_t maxSize, int readers)
    : path_(input.Path()), document_(input.Read(maxSize)) {
  if (document_.IsEmpty()) throw InputError("the file is empty");
  if (IsArchive(document_.View())) {
    archive_ = std::move(document_);
    ArchivedScore score = ReadArchivedScore(archive_.View(), maxSize);
    member_ = std::move(score.member);
    document_ = std::move(score.content);
  }
  score_ = InMember(member_, [&] { return ReadMusicXml(document_.View(), readers); });
}

LedgerEdits ScoreFile::Edits() const {
  return InMember(member_, [this] { return LedgerEdits(document_.View(), score_); });
}

std::string ScoreFile::LocatedText(TextPlace place, const std::string& message) const {
  return Located(IsCompressed() ? path_ + ": " + Excerpt(member_) : path_, place, message);
}

std::optional<std::vector<std::string>> ScoreFile::Save(const LedgerEdits& edits, const Target& target,
                                                        const std::function<bool()>& isCancelled) const {
  SafeFile file(target);
  WriteTo([&file](std::string_view piece) { file.Write(piece); }, edits);
  if (isCancelled()) return std::nullopt;
  return file.Commit();
}

bool ScoreFile::Print(const LedgerEdits& edits, int descriptor, const std::string& name,
                      const std::function<bool()>& isCancelled) const {
  const auto expect = [&name](bool isWritten) {
    if (!isWritten) {
      const int error = errno;
      throw OutputError(name + ": cannot be written: " + std::strerror(error), IsPassing(error));
    }
  };
  if (isCancelled()) return false;
  BufferedWriter writer(descriptor);
  WriteTo([&](std::string_view piece) { expect(writer.Write(piece)); }, edits);
  expect(writer.Flush());
  return true;
}

void ScoreFile::WriteTo(const std::function<void(std::string_view)>& write, const LedgerEdits& edits) const {
  if (!IsCompressed()) return edits.Write(write);
  write(edits.ChangedEntries() == 0 ? archive_.View() : std::string_view(ArchiveWith(edits)));
}

std::string ScoreFile::ArchiveWith(const LedgerEdits& edits) const {
  Bytes edited(edits.EditedSize());
  char* end = edited.Data();
  edits.Write([&end](std::string_view piece) { end = std::ranges::copy(piece, end).out; });
  return ReplaceMember(archive_.View(), member_, edited.View());
}

}  // namespace brvhost
