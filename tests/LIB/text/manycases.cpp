// Thousands of cases for each property, as they cost microseconds; RC_PARAMS in the environment comes first.
#include <cstdlib>

namespace {

constexpr int kKeepWhatIsSet = 0;
[[maybe_unused]] const int kDone = setenv("RC_PARAMS", "max_success=5000", kKeepWhatIsSet);

}  // namespace
