#include "fuzz/host/zipfile.h"

#include <cstddef>
#include <stdexcept>

namespace brvhost {
namespace {

constexpr std::string_view kLocal("PK\x03\x04", 4);
constexpr std::string_view kCentral("PK\x01\x02", 4);
constexpr std::string_view kEnd("PK\x05\x06", 4);
constexpr std::size_t kLocalSize = 30;
constexpr std::size_t kEndSize = 22;

void Put16(std::string& bytes, std::size_t value) {
  bytes += static_cast<char>(value & 0xFF);
  bytes += static_cast<char>(value >> 8 & 0xFF);
}
void Put32(std::string& bytes, std::size_t value) {
  Put16(bytes, value & 0xFFFF);
  Put16(bytes, value >> 16 & 0xFFFF);
}

// What both headers of a member state alike.
void PutCommon(std::string& bytes, const ZipMember& member) {
  for (const std::uint16_t word : {member.version, member.flags, member.method, member.time, member.date}) {
    Put16(bytes, word);
  }
  Put32(bytes, member.crc);
  Put32(bytes, member.stored.size());
  Put32(bytes, member.size);
  Put16(bytes, member.name.size());
  Put16(bytes, member.extra.size());
}

// Takes numbers and texts from a header. Throws std::out_of_range at the end of the archive.
class Header {
 public:
  Header(std::string_view archive, std::size_t offset) : rest_(archive.substr(offset)) {}

  std::uint16_t Word() {
    const std::string_view bytes = Text(2);
    return static_cast<std::uint16_t>(static_cast<unsigned char>(bytes[0]) | static_cast<unsigned char>(bytes[1]) << 8);
  }
  std::uint32_t Long() {
    const std::uint32_t low = Word();
    return low | static_cast<std::uint32_t>(Word()) << 16;
  }
  std::string_view Text(std::size_t size) {
    if (size > rest_.size()) throw std::out_of_range("a header goes beyond the archive");
    const std::string_view text = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return text;
  }

 private:
  std::string_view rest_;
};

// Reads the member whose header in the directory is next, and the bytes that this leads to.
ZipMember NextMember(Header& directory, std::string_view archive) {
  ZipMember member;
  directory.Text(kCentral.size() + 4);  // and both versions
  member.version = 0;
  member.flags = directory.Word();
  member.method = directory.Word();
  member.time = directory.Word();
  member.date = directory.Word();
  member.crc = directory.Long();
  const std::uint32_t storedSize = directory.Long();
  member.size = directory.Long();
  const std::uint16_t nameSize = directory.Word();
  const std::uint16_t extraSize = directory.Word();
  const std::uint16_t commentSize = directory.Word();
  directory.Text(4);  // disk, internal attributes
  member.attributes = directory.Long();
  const std::uint32_t offset = directory.Long();
  member.name = directory.Text(nameSize);
  directory.Text(extraSize);
  member.comment = directory.Text(commentSize);

  Header local(archive, offset);
  local.Text(kLocalSize - 4);
  const std::uint16_t localNameSize = local.Word();
  local.Text(static_cast<std::size_t>(local.Word()) + localNameSize);
  member.stored = local.Text(storedSize);
  return member;
}

// Where the record at the end starts: the first whose comment ends with the archive.
std::optional<std::size_t> EndOf(std::string_view archive) {
  for (std::size_t at = archive.find(kEnd); at != std::string_view::npos; at = archive.find(kEnd, at + 1)) {
    if (archive.size() - at < kEndSize) break;
    const std::size_t commentSize = Header(archive, at + kEndSize - 2).Word();
    if (at + kEndSize + commentSize == archive.size()) return at;
  }
  return std::nullopt;
}

}  // namespace

std::string ZipFileOf(const std::vector<ZipMember>& members, std::string_view comment) {
  std::string bytes;
  std::string directory;
  for (const ZipMember& member : members) {
    directory.append(kCentral);
    Put16(directory, member.version);
    PutCommon(directory, member);
    Put16(directory, member.comment.size());
    Put32(directory, 0);  // disk, internal attributes
    Put32(directory, member.attributes);
    Put32(directory, bytes.size());
    directory.append(member.name).append(member.extra).append(member.comment);
    bytes.append(kLocal);
    PutCommon(bytes, member);
    bytes.append(member.name).append(member.extra).append(member.stored);
  }
  const std::size_t start = bytes.size();
  bytes.append(directory).append(kEnd);
  Put32(bytes, 0);  // disks
  Put16(bytes, members.size());
  Put16(bytes, members.size());
  Put32(bytes, directory.size());
  Put32(bytes, start);
  Put16(bytes, comment.size());
  return bytes.append(comment);
}

std::optional<std::vector<ZipMember>> MembersOf(std::string_view archive) {
  const auto found = EndOf(archive);
  if (!found) return std::nullopt;
  try {
    Header end(archive, *found);
    end.Text(kEnd.size() + 4);
    const std::uint16_t count = end.Word();
    end.Text(6);  // the count again, the size
    const std::uint32_t offset = end.Long();
    Header directory(archive, offset);
    std::vector<ZipMember> members;
    while (members.size() < count) members.push_back(NextMember(directory, archive));
    return members;
  } catch (const std::out_of_range&) {
    return std::nullopt;
  }
}

}  // namespace brvhost
