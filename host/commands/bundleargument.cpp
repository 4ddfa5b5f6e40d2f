#include "host/commands/bundleargument.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/bundle/bundlesearch.h"
#include "host/bundle/loadedbundle.h"
#include "host/commands/argumentnames.h"
#include "host/commands/optionvalues.h"
#include "host/commands/usageerror.h"
#include "host/files/filekind.h"

namespace brvhost {
namespace {

[[noreturn]] void RefuseScore(const Options& options) {
  const auto isBundle = [](const std::string& score) { return KindOf(score) == FileKind::kBundle; };
  const auto bundle = std::ranges::find_if(options.scores, isBundle);
  if (bundle == options.scores.end()) {
    throw UsageError(fmt::format("{}: is a score, not an extension", options.bundle));
  }
  throw UsageError(
      fmt::format("{}: is a score, and {} an extension; the extension comes first", options.bundle, *bundle));
}

}  // namespace

std::string BundleOf(const Options& options) {
  RefuseEmpty(kBundleArgument, options.bundle);
  switch (KindOf(options.bundle)) {
    case FileKind::kScore:
      RefuseScore(options);
    case FileKind::kFolder:
      throw BundleError(options.bundle + ": is a folder, not a bundle");
    case FileKind::kOther:
      throw BundleError(options.bundle + ": is a file, not a bundle");
    default:
      return PathOfBundle(options.bundle);
  }
}

}  // namespace brvhost
