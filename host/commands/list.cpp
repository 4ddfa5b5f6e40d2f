#include <fmt/format.h>

#include <cstdio>
#include <string>
#include <vector>

#include "host/bundle/bundlefolders.h"
#include "host/bundle/installedbundles.h"
#include "host/commands/commands.h"
#include "host/process/exitstatus.h"
#include "host/process/memoryshortage.h"
#include "host/process/streams.h"
#include "host/text/json.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

std::string Joined(const std::vector<std::string>& texts) { return fmt::format("{}", fmt::join(texts, ", ")); }

void PrintBundle(const InstalledBundle& bundle) {
  const std::string hidden = bundle.hiddenBy.empty() ? "" : "hidden by " + bundle.hiddenBy;
  Print(stdout, "{}\t{}\t{}\t{}\t{}{}{}\n", Printable(bundle.name), Printable(bundle.version),
        Printable(Joined(bundle.languages)), Printable(Joined(bundle.systems)), Printable(bundle.path),
        hidden.empty() ? "" : "\t", Printable(hidden));
}

std::string JsonOf(const InstalledBundle& bundle) {
  JsonObject object;
  object.AddPath("name", bundle.name).AddPath("path", bundle.path).AddText("version", bundle.version);
  object.AddJson("languages", JsonArrayOfTexts(bundle.languages)).AddJson("systems", JsonArrayOfTexts(bundle.systems));
  object.AddPathOrNull("hiddenBy", bundle.hiddenBy);
  object.AddTextOrNull("error", bundle.wrong.empty() ? "" : bundle.path + ": " + bundle.wrong);
  return object.Text();
}

}  // namespace

int ListBundles(const Options& options) {
  int status = kDone;
  // What reads a bundle takes a lack of memory for a bundle that lacks something.
  const auto bundles = WithEnoughMemory([] { return InstalledBundles(BundleFolders()); });
  for (const InstalledBundle& bundle : bundles) {
    if (options.json) Print(stdout, "{}\n", JsonOf(bundle));
    if (bundle.wrong.empty()) {
      if (!options.json) PrintBundle(bundle);
      continue;
    }
    Print(stderr, "brvhost: {}\n", Printable(bundle.path + ": " + bundle.wrong));
    status = kBadBundle;
  }
  return status;
}

}  // namespace brvhost
