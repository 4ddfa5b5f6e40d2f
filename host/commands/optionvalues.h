// The values of options that are no plain texts. Each function throws UsageError, which names the option and the value.
#pragma once

#include <cstdint>
#include <string>

namespace brvhost {

// An empty value is usually a shell variable that was never set, and does not mean "all" or "none".
void RefuseEmpty(const std::string& option, const std::string& value);

// A whole number between two others, themselves included: an int or an std::int64_t.
template <class Number>
Number NumberFrom(const std::string& option, const std::string& value, Number first, Number last);

// A number of bytes: 1 at least, kMaxSizeLimit at most. A unit counts in steps of 1024: 1k, 1KB and 1KiB are 1024
// bytes.
std::uint64_t SizeFrom(const std::string& option, const std::string& value);

}  // namespace brvhost
