// Writes the program's documents, which follow from its command line, into a new folder: brvhost-docs FOLDER.
#include <fmt/format.h>

#include <cstdio>
#include <exception>

#include "host/commands/commandline.h"
#include "host/commands/options.h"
#include "host/documentation/documents.h"
#include "host/process/exitstatus.h"
#include "host/project/newfolder.h"
#include "host/text/reason.h"
#include "host/version/version.h"

namespace {

using namespace brvhost;

void WriteDocuments(const char* name) {
  Options options;
  const auto app = DescribeCommandLine(options, kVersion);
  NewFolder folder(name);
  for (const Document& document : DocumentsOf(*app, kReleaseDate)) folder.Add(document.path, document.content);
  folder.Keep();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    fmt::print(stderr, "usage: brvhost-docs FOLDER\n");
    return kBadInput;
  }
  try {
    WriteDocuments(argv[1]);
  } catch (const std::exception& error) {
    fmt::print(stderr, "brvhost-docs: {}\n", ReasonOf(error));
    return kFailed;
  }
  return kDone;
}
