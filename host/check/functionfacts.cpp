#include "host/check/functionfacts.h"

#include <vector>

#include "host/calls/missingfunctions.h"
#include "host/check/eachitem.h"
#include "host/check/trial.h"

namespace brvhost {

std::string AsksForKnownFunctions(const std::string& path) {
  static MissingFunctions missing{};
  MarkMissingFunctionsIn(missing);
  ForEachItem(path, Trial::kSelected, [](Trial& trial, int item) {
    trial.InvokeOnWholeScore(item);
    return "";
  });
  const std::vector<std::string> names = NamesOfMissing({&missing});
  return names.empty() ? "" : MissingText("it", names);
}

}  // namespace brvhost
