#include "host/check/facts.h"

#include "host/bundle/entrypoints.h"
#include "host/bundle/loadedbundle.h"
#include "host/calls/interception.h"
#include "host/check/codefacts.h"
#include "host/check/entryfacts.h"
#include "host/check/exportfacts.h"
#include "host/check/failingcallfacts.h"
#include "host/check/filefacts.h"
#include "host/check/functionfacts.h"
#include "host/check/importfacts.h"
#include "host/check/itemfacts.h"
#include "host/check/oddscorefacts.h"
#include "host/check/remainsfacts.h"

namespace brvhost {
namespace {

using enum Severity;
using enum FactKind;

Fact About(const char* name, const char* sentence, Severity severity, FactKind kind,
           std::string (*check)(const std::string& path)) {
  return {name, sentence, severity, kind, [check](const Subject& subject) { return check(subject.path); }};
}

// Calls are answered, or at least heard, in the place of the host.
Fact HearingCalls(const char* name, const char* sentence, Severity severity,
                  std::string (*check)(const std::string& path)) {
  Fact fact = About(name, sentence, severity, kBehaviour, check);
  fact.hearsCalls = true;
  return fact;
}

Fact InEmptyHost(const char* name, const char* sentence) {
  const auto check = [](const Subject& subject) { return WorksInEmptyHost(subject.path, *subject.emptyHost); };
  return {name, sentence, kError, kBehaviour, check, true};
}

}  // namespace

const char* NameOf(Severity severity) {
  switch (severity) {
    case kNote:
      return "note";
    case kWarning:
      return "warning";
    default:
      return "error";
  }
}

namespace {

std::vector<Fact> FactsOfAllSystems() {
  return {
      About("exports-entry-points", "loads, and exports the entry points", kError, kStart, ExportsEntryPoints),
      About("binds-to-host", "binds to its host", kError, kStart, Binds),
      About("is-for-this-version", "is for this version of the host", kError, kStart, HasVersion),
      About("initialises", "initialises, and clears the word", kError, kStart, Initialises),
      About("ends-item-list", "offers items, and ends their list", kError, kStart, EndsItsList),
      About("ends-texts", "ends each text of an item", kError, kBehaviour, TerminatesTexts),
      About("clears-last-word", "clears the last word of each item's texts", kError, kBehaviour, ClearsLastWord),
      About("stays-within-texts", "writes to the texts' record alone", kError, kBehaviour, StaysWithinTexts),
      About("leaves-refused-texts", "does not touch the texts of an item that it does not have", kError, kBehaviour,
            LeavesRefusedTexts),
      About("has-menu-status", "has a menu status", kError, kBehaviour, HasMenuStatus),
      About("has-short-names", "has names of items that menus show whole", kWarning, kBehaviour, HasShortNames),
      About("refuses-wrong-item", "refuses an item that it does not have", kError, kBehaviour, RefusesWrongIndex),
      About("respects-decline", "does nothing when the user declines", kError, kBehaviour, RespectsDecline),
      InEmptyHost("works-without-functions", "works in a host without functions"),
      About("frees-frames", "frees each frame that it loads, once", kError, kBehaviour, BalancesFrames),
      About("avoids-leaving-calls", "calls no function of the kit that leaves frames loaded", kWarning, kBehaviour,
            AvoidsLeavingCalls),
      About("ends-edits", "ends the edits and progress that it starts", kError, kBehaviour, BalancesEdits),
      About("ends-when-cancelled", "ends in order when the user cancels", kError, kBehaviour, EndsWhenCancelled),
      About("changes-nothing-twice", "changes nothing the second time", kWarning, kBehaviour, ChangesNothingTwice),
      About("repeats-its-result", "does the same on the same score", kWarning, kBehaviour, RepeatsItsResult),
      HearingCalls("survives-one-failure", "ends in order where a host call fails", kError, EndsInOrderWhereACallFails),
      HearingCalls("survives-lasting-failure", "ends in order where all host calls fail from one on", kError,
                   EndsInOrderWhereAllCallsFailFromOneOn),
      HearingCalls("asks-for-known-functions", "asks for host functions that brvhost has", kNote,
                   AsksForKnownFunctions),
      About("terminates", "terminates", kError, kBehaviour, Terminates),
      About("works-without-entries", "works on a score without entries", kError, kBehaviour, WorksWithoutEntries),
      About("works-on-one-measure", "works on a score of one measure", kError, kBehaviour, WorksOnOneMeasure),
      About("works-on-most-measures", "works on a score of 32767 measures", kError, kBehaviour, WorksOnMostMeasures),
      About("works-on-most-staves", "works on a score of 32767 staves", kError, kBehaviour, WorksOnMostStaves),
      About("ends-threads", "leaves no thread when it returns", kWarning, kBehaviour, EndsItsThreads),
      About("prints-nothing", "writes nothing to the standard streams", kWarning, kBehaviour, PrintsNothing),
      About("closes-descriptors", "opens no descriptors that it does not close", kWarning, kBehaviour,
            ClosesDescriptors),
      About("releases-memory", "takes no more memory with each invocation", kWarning, kBehaviour, ReleasesMemory),
      About("has-info-keys", "has each key in Info.plist that hosts and systems look for", kWarning, kFiles,
            HasInfoKeys),
      About("has-development-region", "has texts for its development region", kWarning, kFiles, HasDevelopmentRegion),
      About("has-readable-texts", "has files of texts that can be read", kError, kFiles, HasReadableTexts),
      About("has-all-translations", "has each text in each of its languages", kWarning, kFiles, HasAllTranslations),
      About("keeps-placeholders", "has the same placeholders in a text in each language", kWarning, kFiles,
            KeepsPlaceholders),
      About("fits-its-folders", "has each executable in the folder of its system", kError, kFiles, FitsItsFolders),
      About("runs-on-every-mac", "has code for both processors in its executable for macOS", kNote, kFiles,
            RunsOnEveryMac),
      About("exports-for-each-system", "exports the entry points from each of its executables", kError, kFiles,
            ExportsForEachSystem),
      About("exports-nothing-else", "exports nothing but the entry points and the kit", kWarning, kFiles,
            ExportsNothingElse),
      About("imports-from-macos", "imports from macOS and itself alone where it is for macOS", kError, kFiles,
            ImportsFromMacOS),
      About("imports-known-names", "imports names that are known where it is for macOS", kNote, kFiles,
            ImportsKnownNames),
  };
}

std::vector<Fact> FactsOfThisSystem() {
  std::vector<Fact> facts = FactsOfAllSystems();
  if (!CallsCanBeHeard()) std::erase_if(facts, [](const Fact& fact) { return fact.hearsCalls; });
  return facts;
}

}  // namespace

const std::vector<Fact>& AllFacts() {
  static const std::vector<Fact> facts = FactsOfThisSystem();
  return facts;
}

std::string WrongWith(const Fact& fact, const Subject& subject) {
  try {
    return fact.check(subject);
  } catch (const BundleError& error) {
    const std::string message = error.what();
    const std::string start = subject.path + ": ";
    return message.starts_with(start) ? message.substr(start.size()) : message;
  } catch (const ThrownByExtension& exception) {
    return exception.what();
  }
}

}  // namespace brvhost
