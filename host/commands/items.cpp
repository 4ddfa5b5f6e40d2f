#include <algorithm>
#include <cstdio>

#include "host/batch/extensionprocess.h"
#include "host/batch/job.h"
#include "host/commands/commands.h"
#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"
#include "host/process/streams.h"
#include "host/process/terminal.h"
#include "host/text/printable.h"

namespace brvhost {

int ListItems(const Options& options) {
  CountInterrupts();
  Terminal terminal;
  JobSettings settings;
  settings.bundle = options.bundle;
  settings.confine = options.confines;
  ExtensionProcess extension(settings, 0, terminal);
  const auto offer = extension.WaitForOffer();
  if (!offer) return kInterrupted;
  int number = 0;
  for (const MenuItem& item : offer->items) {
    Print(stdout, "{}\t{}\t{}\t{}\n", number++, Printable(item.name), Printable(item.undoName),
          Printable(item.explanation));
  }
  return extension.Finish() ? kDone : kFailed;
}

}  // namespace brvhost
