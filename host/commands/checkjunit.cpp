#include "host/commands/checkjunit.h"

#include <fmt/format.h>

#include <chrono>
#include <cstddef>

#include "host/bundle/bundlename.h"
#include "host/text/xmltext.h"

namespace brvhost {
namespace {

std::string SecondsOf(std::chrono::milliseconds duration) {
  constexpr auto kSecond = 1000;
  return fmt::format("{}.{:03}", duration.count() / kSecond, duration.count() % kSecond);
}

std::chrono::milliseconds DurationOf(const BundleResults& results) {
  std::chrono::milliseconds duration{};
  for (const FactResult& fact : results.facts) duration += fact.duration;
  return duration;
}

std::size_t FailuresOf(const OutcomeCounts& counts, bool strict) {
  return counts.errors + (strict ? counts.warnings : 0);
}

// What a test's element holds; nothing where the fact holds.
std::string ContentOf(const FactResult& result, bool strict) {
  const std::string severity = NameOf(result.fact->severity);
  const std::string message = XmlOf(result.message);
  switch (result.outcome) {
    case Outcome::kHolds:
      return "";
    case Outcome::kSkipped:
      return fmt::format("<skipped message=\"{}\"/>", message);
    case Outcome::kWarning:
      if (strict) break;
      [[fallthrough]];
    case Outcome::kNote:
      return fmt::format("<system-out>{}: {}</system-out>", severity, message);
    default:
      break;
  }
  const std::string reproduce = result.reproduce.empty() ? "" : "; in a debugger: " + XmlOf(result.reproduce);
  return fmt::format("<failure type=\"{}\" message=\"{}\">{}: {}{}</failure>", severity, message,
                     XmlOf(result.fact->sentence), message, reproduce);
}

std::string CaseOf(const std::string& bundle, const FactResult& result, bool strict) {
  const std::string content = ContentOf(result, strict);
  const std::string start = fmt::format("    <testcase classname=\"{}\" name=\"{}\" time=\"{}\"",
                                        XmlOf(NameOfBundle(bundle)), result.fact->name, SecondsOf(result.duration));
  return start + (content.empty() ? "/>\n" : ">" + content + "</testcase>\n");
}

std::string SuiteOf(const BundleResults& results, bool strict) {
  const OutcomeCounts counts = CountsOf(results);
  std::string suite = fmt::format(
      "  <testsuite name=\"{}\" tests=\"{}\" failures=\"{}\" errors=\"0\" skipped=\"{}\" time=\"{}\">\n",
      XmlOf(results.bundle), counts.facts, FailuresOf(counts, strict), counts.skipped, SecondsOf(DurationOf(results)));
  for (const FactResult& fact : results.facts) suite += CaseOf(results.bundle, fact, strict);
  return suite + "  </testsuite>\n";
}

}  // namespace

std::string JUnitOf(const std::vector<BundleResults>& results, bool strict) {
  const OutcomeCounts counts = CountsOf(results);
  std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  xml += fmt::format("<testsuites name=\"brvhost check\" tests=\"{}\" failures=\"{}\">\n", counts.facts,
                     FailuresOf(counts, strict));
  for (const BundleResults& bundle : results) xml += SuiteOf(bundle, strict);
  return xml + "</testsuites>\n";
}

}  // namespace brvhost
