// What the whole command costs, from file to file, beside a parse alone of the same XML; and its memory beside the size
// of the XML. With a path, that score; without, a sample.
//
//   bench-run [SCORE]
#include <expat.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "host/files/archive.h"
#include "host/files/content.h"
#include "host/files/scorefile.h"
#include "sidebyside.h"

extern char** environ;

namespace {

brvhost::Bytes XmlOf(const std::string& path) {
  brvhost::Bytes content = brvhost::ReadFile(path);
  if (!brvhost::IsArchive(content.View())) return content;
  return brvhost::ReadArchivedScore(content.View(), brvhost::kDefaultMaxSize).content;
}

void ParseAlone(std::string_view xml) {
  const XML_Parser parser = XML_ParserCreate(nullptr);
  if (XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), XML_TRUE) != XML_STATUS_OK) std::abort();
  XML_ParserFree(parser);
}

// Runs the command, and returns its peak memory in bytes.
long RunCommand(const std::string& score) {
  const std::string output = score.ends_with(".mxl") ? "bench-run-output.mxl" : "bench-run-output.musicxml";
  const char* arguments[] = {BRVHOST, "run",         BRV_BUNDLE, "--item",       "0",
                             "--all", score.c_str(), "-o",       output.c_str(), nullptr};
  posix_spawn_file_actions_t silence;
  posix_spawn_file_actions_init(&silence);
  posix_spawn_file_actions_addopen(&silence, 1, "/dev/null", 1, 0);
  pid_t process = 0;
  if (posix_spawn(&process, BRVHOST, &silence, nullptr, const_cast<char**>(arguments), environ) != 0) std::abort();
  posix_spawn_file_actions_destroy(&silence);
  int status = 0;
  struct rusage usage;
  if (wait4(process, &status, 0, &usage) < 0 || status != 0) std::abort();
  std::remove(output.c_str());
  return usage.ru_maxrss * 1024;
}

// Writes the XML in a process of its own: the memory of this one would count as that of those it starts.
void WritePlain(const std::string& score, const char* target) {
  const pid_t process = fork();
  if (process == 0) {
    const brvhost::Bytes xml = XmlOf(score);
    std::FILE* const file = std::fopen(target, "wb");
    const bool written = file != nullptr && std::fwrite(xml.Data(), 1, xml.Size(), file) == xml.Size();
    _exit(written && std::fclose(file) == 0 ? 0 : 1);
  }
  int status = 0;
  if (waitpid(process, &status, 0) < 0 || status != 0) std::abort();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string score = argc > 1 ? argv[1] : BRV_SAMPLE;
  const std::string plain = "bench-run-input.musicxml";
  WritePlain(score, plain.c_str());
  const long memory = RunCommand(plain);
  const brvhost::Bytes content = brvhost::ReadFile(plain);
  const std::string_view xml = content.View();
  PrintRatio(
      "brvhost run, plain / parsing the same XML alone", 1, [&](int) { RunCommand(plain); },
      [&](int) { ParseAlone(xml); });
  if (score.ends_with(".mxl")) {
    PrintRatio(
        "brvhost run, compressed / parsing the same XML alone", 1, [&](int) { RunCommand(score); },
        [&](int) { ParseAlone(xml); });
  }
  std::remove(plain.c_str());
  std::printf("peak memory %ld bytes of the command, %zu bytes of XML: ratio %.2f\n", memory, xml.size(),
              static_cast<double>(memory) / static_cast<double>(xml.size()));
}
