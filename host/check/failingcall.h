// Host calls that are made to fail.
#pragma once

#include <string_view>

namespace brvhost {

// Whether the function of that name does its work though it reports a failure: it frees or ends something, or begins an
// edit, and an extension cannot do that in another way.
bool WorksThoughItFails(std::string_view name);

}  // namespace brvhost
