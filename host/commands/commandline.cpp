#include "host/commands/commandline.h"

#include <cstdint>
#include <string>

#include "host/commands/helptexts.h"
#include "host/files/sizelimit.h"
#include "host/version.h"

namespace brvhost {
namespace {

void AddBundle(CLI::App& command, Options& options) {
  command.add_option("BUNDLE", options.bundle, "The extension's bundle, a folder")->required()->type_name("");
}

// An empty value is usually a shell variable that was never set, and does not mean "all".
CLI::Validator NotEmpty() {
  return CLI::Validator(
      [](const std::string& value) { return value.empty() ? std::string("is empty") : std::string(); }, "");
}

template <class Size>
void AddSize(CLI::App& command, const char* name, Size& size, const char* about) {
  command.add_option(name, size, about)
      ->transform(CLI::AsSizeValue(false).description(""))
      ->check(CLI::Range(std::uint64_t{1}, kMaxSizeLimit).description(""))
      ->type_name("SIZE");
}

void AddConfinement(CLI::App& command, bool& confines, const char* names) {
  command.add_flag(names, confines, "Let the extension write no file, use no network and start no program");
}

void AddScores(CLI::App& command, Options& options) {
  command.add_option("SCORE", options.scores, "MusicXML: .musicxml, .xml or .mxl")->required()->type_name("");
  AddSize(command, "--max-size", options.maxSize,
          "The most that a compressed score may unpack to, or a pipe may bring: a number of bytes, or with KB, MB, GB "
          "(1 GB)");
  AddSize(command, "--max-memory", options.maxMemory,
          "The most memory that the work on a score may take (1 GB, or 16 times the size of a large file)");
}

void AddRegion(CLI::App& run, Options& options) {
  const auto add = [&run](const char* name, std::string& value, const char* type, const char* about) {
    return run.add_option(name, value, about)->check(NotEmpty())->type_name(type)->group("Region");
  };
  add("--staves", options.staves, "A-B", "Only these staves");
  add("--measures", options.measures, "A-B", "Only these measures");
  add("--start-at", options.startAt, "Q", "In the first measure, only from Q quarter notes on: 2, 5/2 or 2.5");
  add("--end-at", options.endAt, "Q", "In the last measure, only up to Q quarter notes, itself included");
  add("--layers", options.layers, "N,...", "Only these layers; the others count as hidden");
  run.add_flag("--all", options.all, "The whole score")->group("Region");
}

void AddTargets(CLI::App& run, Options& options) {
  constexpr const char* kGroup = "Result (exactly one of these)";
  run.add_option("-o,--output", options.output, "Write to this file; for a single score")
      ->check(NotEmpty())
      ->type_name("FILE")
      ->group(kGroup);
  run.add_flag("--in-place", options.inPlace, "Write to the score itself, if anything changed")->group(kGroup);
  run.add_option("--out-dir", options.outputFolder, "Write to this folder, under the score's name")
      ->check(NotEmpty())
      ->type_name("DIR")
      ->group(kGroup);
  run.add_flag("--dry-run", options.dryRun, "Write nothing; report what would change")->group(kGroup);
}

}  // namespace

std::unique_ptr<CLI::App> DescribeCommandLine(Options& options) {
  auto app = std::make_unique<CLI::App>(kAbout, "brvhost");
  app->require_subcommand(1);
  app->footer(kCommonFooter);
  app->set_version_flag("--version", std::string("brvhost ") + kVersion, "Print the version and exit");
  app->set_help_flag("-h,--help", "Print this help and exit");
  app->get_formatter()->column_width(34);

  CLI::App& items = *app->add_subcommand("items", kItemsAbout);
  AddBundle(items, options);
  AddConfinement(items, options.confines, "--confine");
  items.footer(kItemsFooter);

  CLI::App& info = *app->add_subcommand("info", kInfoAbout);
  AddScores(info, options);
  info.footer(kInfoFooter);

  CLI::App& run = *app->add_subcommand("run", kRunAbout);
  AddBundle(run, options);
  AddScores(run, options);
  run.add_option("--item", options.item, "The menu item, as `brvhost items` numbers them")
      ->required()
      ->check(NotEmpty())
      ->type_name("N");
  AddTargets(run, options);
  AddRegion(run, options);
  run.add_flag("--yes", options.yes, "Agree to every question");
  run.add_option("--jobs", options.jobs, "Work on up to N scores at a time; a single score has all processors")
      ->type_name("N")
      ->check(CLI::Range(1, 256).description(""));
  run.add_option(
         "--timeout", options.timeout,
         "End the work of the extension on a score, or the reading of one, that takes longer; by default nothing does")
      ->type_name("SECONDS")
      ->check(CLI::Range(1, 1'000'000).description(""));
  AddConfinement(run, options.confines, "--confine");
  run.footer(kRunFooter);

  CLI::App& check = *app->add_subcommand("check", kCheckAbout);
  AddBundle(check, options);
  check.add_option("--timeout", options.factTimeout, "What takes longer has failed (10)")
      ->type_name("SECONDS")
      ->check(CLI::Range(1, 1'000'000).description(""));
  AddConfinement(check, options.checkConfines, "--confine,!--no-confine");
  check.footer(kCheckFooter);
  return app;
}

}  // namespace brvhost
