#include <fmt/format.h>

#include <cstdio>
#include <string>

#include "host/batch/extensionprocess.h"
#include "host/batch/job.h"
#include "host/bundle/textfaults.h"
#include "host/commands/bundleargument.h"
#include "host/commands/commands.h"
#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"
#include "host/process/streams.h"
#include "host/process/terminal.h"
#include "host/text/json.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

std::string LineOf(const MenuItem& item, unsigned number) {
  return fmt::format("{}\t{}\t{}\t{}", number, Printable(item.name), Printable(item.undoName),
                     Printable(item.explanation));
}

std::string JsonOf(const MenuItem& item, unsigned number) {
  return JsonObject()
      .AddNumber("item", number)
      .AddText("name", item.name)
      .AddText("undoName", item.undoName)
      .AddText("explanation", item.explanation)
      .Text();
}

}  // namespace

int ListItems(const Options& options) {
  CountInterrupts();
  Terminal terminal;
  JobSettings settings;
  settings.bundle = BundleOf(options);
  settings.confine = options.confines;
  ExtensionProcess extension(settings, 0, terminal);
  extension.Load();
  const auto offer = extension.WaitForOffer();
  if (!offer) return kInterrupted;
  unsigned number = 0;
  for (const MenuItem& item : offer->items) {
    Print(stdout, "{}\n", options.json ? JsonOf(item, number) : LineOf(item, number));
    ++number;
  }
  for (const std::string& fault : FaultsInTexts(settings.bundle)) {
    Print(stderr, "brvhost: warning: {}\n", Printable(fault));
  }
  return extension.Finish() ? kDone : kFailed;
}

}  // namespace brvhost
