#include "host/check/facts.h"

#include <memory>
#include <utility>

#include "host/bundle/entrypoints.h"
#include "host/bundle/loadedbundle.h"
#include "host/check/emptyhost.h"
#include "host/check/entryfacts.h"
#include "host/check/itemfacts.h"

namespace brvhost {

std::vector<Fact> FactsAbout(const std::string& path) {
  const auto fact = [&path](const char* name, std::function<std::string(const std::string&)> check,
                            bool othersNeedIt = false) {
    const auto explain = [path, check = std::move(check)]() -> std::string {
      try {
        return check(path);
      } catch (const BundleError& error) {
        const std::string message = error.what();
        return message.starts_with(path + ": ") ? message.substr(path.size() + 2) : message;
      } catch (const ThrownByExtension& exception) {
        return exception.what();
      }
    };
    return Fact{name, explain, othersNeedIt};
  };
  const auto host = std::make_shared<EmptyHost>();
  const auto worksInEmptyHost = [host](const std::string& bundle) { return WorksInEmptyHost(bundle, *host); };
  return {
      fact("loads, and exports the entry points", ExportsEntryPoints, true),
      fact("binds to its host", Binds, true),
      fact("is for this version of the host", HasVersion, true),
      fact("initialises, and clears the word", Initialises, true),
      fact("offers items, and ends their list", EndsItsList, true),
      fact("ends each text of an item", TerminatesTexts),
      fact("clears the last word of each item's texts", ClearsLastWord),
      fact("writes to the texts' record alone", StaysWithinTexts),
      fact("does not touch the texts of an item that it does not have", LeavesRefusedTexts),
      fact("has a menu status", HasMenuStatus),
      fact("refuses an item that it does not have", RefusesWrongIndex),
      fact("does nothing when the user declines", RespectsDecline),
      fact("works in a host without functions", worksInEmptyHost),
      fact("frees each frame that it loads, once", BalancesFrames),
      fact("ends the edits and progress that it starts", BalancesEdits),
      fact("ends in order when the user cancels", EndsWhenCancelled),
      fact("changes nothing the second time", ChangesNothingTwice),
      fact("terminates", Terminates),
  };
}

}  // namespace brvhost
