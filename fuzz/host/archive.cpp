// Any bytes as compressed MusicXML, and archives of odd members: read, given another score, and read again.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fuzz/host/zipfile.h"
#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "host/files/archive.h"
#include "host/files/bytes.h"
#include "host/files/deflate.h"
#include "host/text/inputerror.h"

namespace {

using brvhost::ZipMember;

constexpr std::uint64_t kMaxSize = 5000;
constexpr std::uint16_t kDeflated = 8;
constexpr std::string_view kContainer = "META-INF/container.xml";

std::string AnyName(Input& input) {
  constexpr std::string_view kNames[] = {
      "META-INF/container.xml", "score.xml", "a/score.xml", "mimetype", "META-INF/", "\xC3\xBC.xml"};
  const auto number = static_cast<std::size_t>(input.Below(8));
  if (number < std::size(kNames)) return std::string(kNames[number]);
  return std::string(input.Text(number == 6 ? 5 : 300));
}

std::string AnyContent(Input& input) {
  const int kind = input.Below(4);
  if (kind == 0) return "<container><rootfiles><rootfile full-path='" + AnyName(input) + "'/></rootfiles></container>";
  if (kind == 1) return std::string(input.Word() % (2 * kMaxSize), 'x');
  return std::string(input.Text(input.Byte()));
}

// One bit of `lies` for each value that may be wrong.
ZipMember AnyMember(Input& input) {
  ZipMember member;
  member.name = AnyName(input);
  const std::string content = AnyContent(input);
  member.stored = content;
  member.size = static_cast<std::uint32_t>(content.size());
  member.crc = brvhost::Crc32(content);
  if (input.Flag()) {
    member.method = kDeflated;
    member.stored = brvhost::Deflate(content).View();
  }
  const int lies = input.Byte();
  if ((lies & 1) != 0) member.size = input.Long();
  if ((lies & 2) != 0) member.crc = input.Long();
  if ((lies & 4) != 0) member.method = input.Byte();
  if ((lies & 8) != 0) member.flags = input.Word();
  if ((lies & 16) != 0) member.date = input.Word();
  if ((lies & 16) != 0) member.time = input.Word();
  if ((lies & 32) != 0) member.extra = input.Text(input.Byte());
  if ((lies & 32) != 0) member.attributes = input.Long();
  if ((lies & 64) != 0) member.comment = input.Text(input.Byte());
  if ((lies & 128) != 0) member.version = input.Word();
  return member;
}

std::string ArchiveFrom(Input& input) {
  std::vector<ZipMember> members(static_cast<std::size_t>(input.Below(6)));
  for (ZipMember& member : members) member = AnyMember(input);
  return brvhost::ZipFileOf(members, input.Text(input.Byte()));
}

struct Reading {
  std::optional<brvhost::ArchivedScore> score;
  std::string refusal;
};

Reading Read(std::string_view archive) {
  try {
    auto score = brvhost::ReadArchivedScore(archive, kMaxSize);
    Require(score.content.Size() <= kMaxSize, "no score is larger than allowed");
    return {std::move(score), ""};
  } catch (const brvhost::InputError& error) {
    Require(*error.what() != '\0', "a refusal has a message");
    return {std::nullopt, error.what()};
  }
}

// Whether the date is one of the calendar, which alone the library can write again.
bool HasDate(const ZipMember& member) {
  const int month = member.date >> 5 & 15;
  const int day = member.date & 31;
  return month >= 1 && month <= 12 && day >= 1 && day <= 28 && member.time >> 11 < 24 && (member.time >> 5 & 63) < 60 &&
         (member.time & 31) < 30;
}

// The library writes a name with a byte 0 in another way.
bool HasSoundName(const ZipMember& member) { return member.name.find('\0') == std::string::npos; }

void RequireOthersStay(const std::vector<ZipMember>& before, const std::vector<ZipMember>& after,
                       std::string_view replaced) {
  Require(before.size() == after.size(), "no member is lost or added");
  for (std::size_t i = 0; i < before.size(); ++i) {
    Require(!HasSoundName(before[i]) || before[i].name == after[i].name, "the members keep their names and order");
    Require(!HasDate(before[i]) || (before[i].date == after[i].date && before[i].time == after[i].time),
            "the members keep their dates");
    if (before[i].name == replaced) continue;
    Require(before[i].stored == after[i].stored, "the other members keep their bytes");
    Require(before[i].method == after[i].method, "the other members keep their methods");
    Require(before[i].crc == after[i].crc && before[i].size == after[i].size, "the other members keep their values");
  }
}

void CheckReplaced(std::string_view archive, const std::vector<ZipMember>& before, const std::string& member,
                   const std::string& content) {
  const std::string replaced = brvhost::ReplaceMember(archive, member, content);
  Require(replaced == brvhost::ReplaceMember(archive, member, content), "the same score gives the same bytes");
  const auto [again, refusal] = Read(replaced);
  Require(again.has_value(), "what was written is read: " + refusal);
  Require(again->member == member, "the score keeps its name");
  Require(again->content.View() == content, "the score is what was written");
  const auto after = brvhost::MembersOf(replaced);
  Require(after.has_value(), "what was written has a directory");
  RequireOthersStay(before, *after, member);
}

void Check(std::string_view archive) {
  (void)brvhost::IsArchive(archive);
  const auto score = Read(archive).score;
  // A container is no score: what names itself is refused as soon as it is read.
  if (!score || score->member == kContainer) return;
  const auto members = brvhost::MembersOf(archive);
  if (!members) return;
  const std::string content(score->content.View());
  CheckReplaced(archive, *members, score->member, content);
  CheckReplaced(archive, *members, score->member, "");
  CheckReplaced(archive, *members, score->member, "<score-partwise/>" + content.substr(0, kMaxSize / 2));
}

}  // namespace

// An archive, or else the values of one.
int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const bool inUtc = setenv("TZ", "UTC", 1) == 0;
  Require(inUtc, "the zone of the dates is known");
  Input input(bytes, size);
  const std::string_view archive(reinterpret_cast<const char*>(bytes), size);
  Check(archive.starts_with("PK") ? std::string(archive) : ArchiveFrom(input));
  return 0;
}
