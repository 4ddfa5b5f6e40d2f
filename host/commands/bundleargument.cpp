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

[[noreturn]] void RefuseScore(const std::string& argument, const Options& options) {
  const auto isBundle = [](const std::string& score) { return KindOf(score) == FileKind::kBundle; };
  const auto bundle = std::ranges::find_if(options.scores, isBundle);
  if (bundle == options.scores.end()) {
    throw UsageError(fmt::format("{}: is a score, not an extension", argument));
  }
  throw UsageError(fmt::format("{}: is a score, and {} an extension; the extension comes first", argument, *bundle));
}

std::string PathOf(const std::string& argument, const Options& options) {
  RefuseEmpty(kBundleArgument, argument);
  switch (KindOf(argument)) {
    case FileKind::kScore:
      RefuseScore(argument, options);
    case FileKind::kFolder:
      throw BundleError(argument + ": is a folder, not a bundle");
    case FileKind::kOther:
      throw BundleError(argument + ": is a file, not a bundle");
    default:
      return PathOfBundle(argument);
  }
}

}  // namespace

std::string BundleOf(const Options& options) { return PathOf(options.bundle, options); }

std::vector<std::string> BundlesOf(const Options& options) {
  std::vector<std::string> paths;
  for (const std::string& argument : options.bundles) paths.push_back(PathOf(argument, options));
  return paths;
}

}  // namespace brvhost
