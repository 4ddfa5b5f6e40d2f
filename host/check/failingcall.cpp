#include "host/check/failingcall.h"

#include <algorithm>
#include <iterator>

namespace brvhost {

bool WorksThoughItFails(std::string_view name) {
  constexpr std::string_view kNames[] = {"BX_FreeTGF",       "BX_StartBrevixEdit",  "BX_StartBrevixEdit_UTF16",
                                         "BX_EndBrevixEdit", "BX_CancelBrevixEdit", "BX_EndMassEdit"};
  return std::ranges::find(kNames, name) != std::end(kNames);
}

}  // namespace brvhost
