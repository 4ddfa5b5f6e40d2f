#include <cstdio>

#include "host/bundle/extension.h"
#include "host/commands/commands.h"
#include "host/process/exitstatus.h"
#include "host/process/streams.h"

namespace brvhost {

int ListItems(const Options& options) {
  const Extension extension(options.bundle);
  int number = 0;
  for (const MenuItem& item : extension.Items()) {
    Print(stdout, "{}\t{}\t{}\t{}\n", number++, item.name, item.undoName, item.explanation);
  }
  extension.Terminate();
  return kDone;
}

}  // namespace brvhost
