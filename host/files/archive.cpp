#include "host/files/archive.h"

#include <zip.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <utility>

#include "host/files/archiveend.h"
#include "host/files/archivereason.h"
#include "host/files/deflate.h"
#include "host/files/deflatedsource.h"
#include "host/text/inputerror.h"
#include "host/text/printable.h"
#include "host/xml/xmlreader.h"

namespace brvhost {
namespace {

struct Discard {
  void operator()(zip_t* archive) const { zip_discard(archive); }
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using Archive = std::unique_ptr<zip_t, Discard>;
using Member = std::unique_ptr<zip_file_t, Discard>;

[[noreturn]] void ThrowBroken(const std::string& reason) { throw InputError("not a readable .mxl archive: " + reason); }

// That the library has no memory, which it sometimes reports as no error, is the same as for everybody else.
std::string ReasonOf(zip_error_t* error) {
  const int code = zip_error_code_zip(error);
  if (code == ZIP_ER_MEMORY || code == ZIP_ER_OK) throw std::bad_alloc();
  return ArchiveReason(code);
}

[[noreturn]] void ThrowUnwritable(zip_error_t* error) {
  throw std::runtime_error("the archive cannot be written: " + ReasonOf(error));
}

[[noreturn]] void ThrowLarger(const std::string& name) {
  ThrowBroken(Excerpt(name) + " is larger than the archive states");
}
[[noreturn]] void ThrowSmaller(const std::string& name) {
  ThrowBroken(Excerpt(name) + " is smaller than the archive states");
}

// The memory that an archive is read from, and the library's own that it is written to. The bytes outlive it and stay
// as they are.
class Source {
 public:
  explicit Source(std::string_view bytes) : source_(zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr)) {
    if (source_ == nullptr) throw std::bad_alloc();
  }
  ~Source() { zip_source_free(source_); }
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;

  Archive Open() {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_keep(source_);
    zip_t* const archive = zip_open_from_source(source_, ZIP_CHECKCONS, &error);
    if (archive != nullptr) return Archive(archive);
    zip_source_free(source_);
    const std::unique_ptr<zip_error_t, decltype(&zip_error_fini)> owner(&error, zip_error_fini);
    ThrowBroken(ReasonOf(&error));
  }

  // What the archive was written to when it was closed.
  std::string Written() {
    zip_stat_t status;
    if (zip_source_stat(source_, &status) != 0 || zip_source_open(source_) != 0)
      ThrowUnwritable(zip_source_error(source_));
    std::string bytes(status.size, '\0');
    const zip_int64_t count = zip_source_read(source_, bytes.data(), bytes.size());
    zip_source_close(source_);
    if (count != static_cast<zip_int64_t>(bytes.size())) ThrowUnwritable(zip_source_error(source_));
    return bytes;
  }

 private:
  zip_source_t* source_;
};

// Fills the content from a member. Refuses a member of another length.
void ReadToTheEnd(zip_t* archive, const zip_stat_t& status, zip_flags_t flags, Bytes& content) {
  const std::string name = status.name;
  const Member file(zip_fopen_index(archive, status.index, flags));
  if (file == nullptr) ThrowBroken(Excerpt(name) + ": " + ReasonOf(zip_get_error(archive)));
  const zip_int64_t count = zip_fread(file.get(), content.Data(), content.Size());
  // A directory may lie about the size; the checksum is compared where the end is found.
  char beyond;
  const zip_int64_t more = count < 0 ? -1 : zip_fread(file.get(), &beyond, 1);
  if (more < 0) ThrowBroken(Excerpt(name) + ": " + ReasonOf(zip_file_get_error(file.get())));
  if (more > 0) ThrowLarger(name);
  if (count < static_cast<zip_int64_t>(content.Size())) ThrowSmaller(name);
}

void ReadDeflated(zip_t* archive, const zip_stat_t& status, Bytes& content) {
  Bytes stream(status.comp_size);
  ReadToTheEnd(archive, status, ZIP_FL_COMPRESSED, stream);
  const Unpacked unpacked = Inflate(stream.View(), content);
  if (unpacked == Unpacked::kTooSmall) ThrowLarger(status.name);
  if (unpacked == Unpacked::kBroken) ThrowBroken(Excerpt(status.name) + ": its compressed data is damaged");
  if (Crc32(content.View()) != status.crc) ThrowBroken(Excerpt(status.name) + ": its checksum does not match");
}

// The size that a member may unpack to, and the end of the message about one that unpacks to more.
struct Limit {
  std::uint64_t size;
  const char* advice;
};

// The most that one byte of a stream unpacks to: in a deflated one the shortest reference has two bits, for 258 bytes.
std::uint64_t MaxFromOneByte(std::uint16_t method) {
  if (method == ZIP_CM_STORE) return 1;
  return method == ZIP_CM_DEFLATE ? 1032 : UINT64_MAX;
}

// A path in an archive starts at its top, whether or not it begins so.
std::string_view FromTheTop(std::string_view path) {
  while (path.starts_with("./") || path.starts_with('/')) path.remove_prefix(path.starts_with('/') ? 1 : 2);
  return path;
}

// By its name as UTF-8, whatever encoding the archive has it in. The library's own search reports a lack of memory as a
// missing member.
std::optional<zip_uint64_t> FindMember(zip_t* archive, const std::function<bool(std::string_view)>& isIt) {
  const auto count = static_cast<zip_uint64_t>(zip_get_num_entries(archive, 0));
  for (zip_uint64_t index = 0; index < count; ++index) {
    const char* const name = zip_get_name(archive, index, 0);
    if (name == nullptr) ThrowBroken(ReasonOf(zip_get_error(archive)));
    if (isIt(name)) return index;
  }
  return std::nullopt;
}

// The member of that name, or else one that is at the same place.
zip_uint64_t IndexOf(zip_t* archive, const std::string& member) {
  if (const auto same = FindMember(archive, [&](std::string_view name) { return name == member; })) return *same;
  const auto isAlike = [&](std::string_view name) { return FromTheTop(name) == FromTheTop(member); };
  if (const auto alike = FindMember(archive, isAlike)) return *alike;
  throw InputError("the archive has no member " + Excerpt(member));
}

Bytes ReadMember(zip_t* archive, const std::string& name, Limit limit) {
  zip_stat_t status;
  if (zip_stat_index(archive, IndexOf(archive, name), 0, &status) != 0) {
    ThrowBroken(Excerpt(name) + ": " + ReasonOf(zip_get_error(archive)));
  }
  if (status.size > limit.size) {
    throw InputError(Excerpt(name) + " unpacks to more than " + std::to_string(limit.size) + " bytes" + limit.advice);
  }
  if (status.size / MaxFromOneByte(status.comp_method) > status.comp_size) ThrowSmaller(name);
  Bytes content(status.size);
  if (status.comp_method == ZIP_CM_DEFLATE && status.encryption_method == ZIP_EM_NONE) {
    ReadDeflated(archive, status, content);
  } else {
    ReadToTheEnd(archive, status, 0, content);
  }
  return content;
}

// Finds the first root file of a container.
class ContainerHandler : public XmlHandler {
 public:
  void Begin(XmlPosition&) override {}
  void StartElement(const char* name, const XmlAttributes& attributes) override {
    if (!rootFile_.empty() || std::strcmp(name, "rootfile") != 0) return;
    const char* const path = attributes.Find("full-path");
    if (path != nullptr) rootFile_ = path;
  }
  void EndElement() override {}
  void Text(std::string_view) override {}

  const std::string& RootFile() const { return rootFile_; }

 private:
  std::string rootFile_;
};

std::string RootFile(zip_t* archive) {
  constexpr const char* kContainer = "META-INF/container.xml";
  constexpr std::uint64_t kMaxContainerSize = 1 << 20;
  const Bytes container = ReadMember(archive, kContainer, {kMaxContainerSize, ""});
  ContainerHandler handler;
  try {
    ReadXml(container.View(), handler);
  } catch (const InputError& error) {
    throw InputError(Located(kContainer, error.place, error.what()));
  }
  if (handler.RootFile().empty()) throw InputError(std::string(kContainer).append(" names no root file"));
  return handler.RootFile();
}

// The same score gives the same bytes, whenever it is written. The library keeps the heads of members that have not
// changed, but writes the directory anew, with other dates where these are none of the calendar, and other names where
// these have a byte 0: the two would differ, and a strict reader would refuse the archive. Setting a date writes the
// head anew, too.
void KeepDates(zip_t* archive) {
  const zip_int64_t count = zip_get_num_entries(archive, 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    const auto index = static_cast<zip_uint64_t>(i);
    zip_stat_t status;
    zip_stat_init(&status);
    zip_stat_index(archive, index, ZIP_FL_UNCHANGED, &status);
    if ((status.valid & ZIP_STAT_MTIME) != 0) zip_file_set_mtime(archive, index, status.mtime, 0);
  }
}

// The archive as it is written after one change to a member.
template <class Change>
std::string WithChange(std::string_view bytes, const std::string& member, Change change) {
  Source source(bytes);
  Archive archive = source.Open();
  change(archive.get(), IndexOf(archive.get(), member));
  KeepDates(archive.get());
  if (zip_close(archive.get()) != 0) ThrowUnwritable(zip_get_error(archive.get()));
  archive.release();
  return source.Written();
}

bool IsStored(zip_t* archive, zip_uint64_t index) {
  zip_stat_t status;
  zip_stat_init(&status);
  zip_stat_index(archive, index, 0, &status);
  return (status.valid & ZIP_STAT_COMP_METHOD) != 0 && status.comp_method == ZIP_CM_STORE;
}

void Replace(zip_t* archive, zip_uint64_t index, std::string_view content) {
  zip_source_t* const replacement = DeflatedSource(archive, content);
  if (replacement == nullptr || zip_file_replace(archive, index, replacement, 0) != 0) {
    zip_source_free(replacement);  // which the archive owns only once it has it
    ThrowUnwritable(zip_get_error(archive));
  }
  zip_set_file_compression(archive, index, ZIP_CM_DEFAULT, 0);
}

std::string ReplaceInArchive(std::string_view bytes, const std::string& member, std::string_view content) {
  bool isStored = false;
  std::string replaced = WithChange(bytes, member, [&](zip_t* archive, zip_uint64_t index) {
    isStored = IsStored(archive, index);
    Replace(archive, index, content);
  });
  if (!isStored) return replaced;
  // A member that was stored stays stored. Newer releases of the library pack new content again when it is to have the
  // method that the old content had: the method is changed after the content.
  return WithChange(replaced, member, [](zip_t* archive, zip_uint64_t index) {
    if (zip_set_file_compression(archive, index, ZIP_CM_STORE, 0) != 0) ThrowUnwritable(zip_get_error(archive));
  });
}

}  // namespace

bool IsArchive(std::string_view bytes) { return bytes.starts_with("PK\x03\x04") || bytes.starts_with("PK\x05\x06"); }

ArchivedScore ReadArchivedScore(std::string_view bytes, std::uint64_t maxSize) {
  Source source(bytes.substr(0, SizeOfArchive(bytes)));
  const Archive archive = source.Open();
  std::string member = RootFile(archive.get());
  Bytes content = ReadMember(archive.get(), member, {maxSize, "; --max-size allows more"});
  return {std::move(member), std::move(content)};
}

std::string ReplaceMember(std::string_view bytes, const std::string& member, std::string_view content) {
  const std::size_t size = SizeOfArchive(bytes);
  return ReplaceInArchive(bytes.substr(0, size), member, content).append(bytes.substr(size));
}

}  // namespace brvhost
