#include "host/check/placedcode.h"

#include <fmt/format.h>

#include <cstdint>
#include <filesystem>
#include <system_error>

#include "host/bundle/bundlesystems.h"
#include "host/bundle/infotext.h"
#include "host/code/codebytes.h"
#include "host/files/foldernames.h"
#include "host/files/inputfile.h"
#include "host/text/inputerror.h"

namespace brvhost {
namespace {

bool IsFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

Bytes ContentOf(const std::string& path) {
  constexpr std::uint64_t kMost = 256 << 20;
  try {
    const InputFile file(path);
    if (file.Size() > kMost) throw CodeError("is larger than 256 MB");
    return file.Read(kMost);
  } catch (const InputError& error) {
    throw CodeError(error.what());
  }
}

}  // namespace

std::vector<PlacedCode> CodeOf(const std::string& bundle) {
  std::vector<PlacedCode> all;
  for (const std::string& folder : FilledFolders(bundle)) {
    if (SystemOf(folder).empty()) continue;
    const std::string place = FolderOfContents(bundle) + folder;
    for (const std::string& name : NamesIn(place).value_or(std::vector<std::string>())) {
      const std::string path = fmt::format("{}/{}", place, name);
      const auto code = IsFile(path) ? CodeIn(path) : std::nullopt;
      if (code) all.push_back({folder, name, *code});
    }
  }
  return all;
}

bool IsExecutableOf(const std::string& bundle, const PlacedCode& placed) {
  const bool isForMac = placed.folder == kMacFolder;
  return placed.code.isForMacOS == isForMac &&
         placed.name == InfoText(bundle, "CFBundleExecutable") + (isForMac ? "" : ".so");
}

std::string ShownPath(const PlacedCode& placed) { return fmt::format("{}/{}", placed.folder, placed.name); }

std::string_view NameOnMac(CodeProcessor processor) {
  if (processor == CodeProcessor::kX64) return "x86_64";
  return processor == CodeProcessor::kArm64 ? "arm64" : "another processor";
}

std::string PathOf(const std::string& bundle, const PlacedCode& placed) {
  return FolderOfContents(bundle) + ShownPath(placed);
}

std::vector<CodeImage> ImagesOf(const std::string& bundle, const PlacedCode& placed) {
  return ImagesIn(ContentOf(PathOf(bundle, placed)).View());
}

std::vector<CodeImage> ReadableImagesOf(const std::string& bundle, const PlacedCode& placed) {
  try {
    return ImagesOf(bundle, placed);
  } catch (const CodeError&) {
    return {};
  }
}

std::string Shown(const PlacedCode& placed, const CodeImage& image) {
  const std::string path = ShownPath(placed);
  return placed.code.processors.size() > 1 ? fmt::format("{} for {}", path, NameOnMac(image.Processor())) : path;
}

}  // namespace brvhost
