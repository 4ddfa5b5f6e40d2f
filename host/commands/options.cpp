#include "host/commands/options.h"

#include "host/version.h"

namespace brvhost {
namespace {

constexpr const char* kAbout =
    "Runs extensions of the Brevix music-notation application on MusicXML scores, without the application.";

constexpr const char* kCommonFooter = R"(EXIT STATUS
  0    done
  1    a result could not be written, an extension crashed, or a check failed
  2    bad usage, or a score that cannot be used
  3    a bundle that cannot be used
  130  interrupted

EXAMPLES
  brvhost items LegerLines.bundle
  brvhost run LegerLines.bundle --item 0 --all sonata.musicxml -o hidden.musicxml
  brvhost run LegerLines.bundle --item 0 --all --in-place --jobs 4 scores/*.mxl)";

constexpr const char* kItemsFooter = R"(EXIT STATUS
  0    done
  3    a bundle that cannot be used)";

constexpr const char* kInfoFooter = R"(EXIT STATUS
  0    done
  2    a score that cannot be used; the others are told all the same)";

constexpr const char* kItemsAbout =
    "Lists the menu items of an extension, one a line: its number, its name in the menu, its name in the Undo command, "
    "and its explanation, with tabs between them.";

constexpr const char* kInfoAbout =
    "Says what each score holds: its parts with their staves, the number of measures and layers, its entries (notes, "
    "chords and rests), and how many of them show no ledger lines.";

constexpr const char* kRunAbout =
    "Runs one menu item of an extension on each score, and writes the result. A result differs from its score in the "
    "attribute print-leger of those notes that the extension changed, and in nothing else.";

constexpr const char* kRunFooter = R"(THE REGION
  With any of --staves, --measures, --start-at and --end-at, the extension works on that region; what is not named
  reaches as far as the score. With --all it is the whole score. With none of these nothing is selected: the extension
  asks whether it may work on the whole score.

  Staves count from 1 through all parts, measures from 1 by their order, whatever their printed numbers, and the layers
  of a staff from 1, in the order in which its voices first appear. A range is written 3, 2-5, 2- or -5.

WHILE IT RUNS
  On a terminal, a bar shows how far it is. Ctrl-C is to the extension what Command-period is in the application: it
  ends, nothing is written, and the exit status is 130. A second Ctrl-C does not wait for the extension.
  Questions are asked on the terminal; without one the answer is no.

FILES
  A result is written beside its target and takes its name when it is complete, so that a failure leaves the old file
  whole. Compressed scores (.mxl) stay compressed.

EXIT STATUS
  0    done, whether or not anything changed
  1    a result could not be written, or the extension crashed
  2    bad usage, or a score that cannot be used; the other scores are done
  3    a bundle that cannot be used
  130  interrupted

EXAMPLES
  Hide the ledger lines in the left hand of measures 5 to 8:
    brvhost run LegerLines.bundle --item 0 --staves 2 --measures 5-8 piano.musicxml -o hidden.musicxml
  Show them again in a folder of scores, two at a time:
    brvhost run LegerLines.bundle --item 1 --all --in-place --jobs 2 scores/*.mxl)";

constexpr const char* kCheckAbout =
    "Holds an extension against the calling convention, in a process of its own: what it exports, its version, its "
    "menu items, and how it answers right and wrong calls. Prints one line a fact: ok, or what went wrong.";

constexpr const char* kCheckFooter = R"(EXIT STATUS
  0    every fact holds
  1    one does not
  3    there is no such bundle)";

void AddBundle(CLI::App& command, Options& options) {
  command.add_option("BUNDLE", options.bundle, "The extension's bundle, a folder")->required()->type_name("");
}

// An empty value is mostly a variable of the shell that was never set, and not "all".
CLI::Validator NotEmpty() {
  return CLI::Validator(
      [](const std::string& value) { return value.empty() ? std::string("is empty") : std::string(); }, "");
}

void AddScores(CLI::App& command, Options& options) {
  command.add_option("SCORE", options.scores, "MusicXML: .musicxml, .xml or .mxl")->required()->type_name("");
  command
      .add_option("--max-size", options.maxSize,
                  "The most that a compressed score may unpack to: a number of bytes, or with KB, MB, GB (1 GB)")
      ->transform(CLI::AsSizeValue(false).description(""))
      ->check(CLI::Range(std::uint64_t{1}, kLargestMaxSize).description(""))
      ->type_name("SIZE");
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
  run.add_flag("--dry-run", options.dryRun, "Write nothing; say what would change")->group(kGroup);
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
  run.add_option("--jobs", options.jobs, "Work on so many scores at a time; one score alone has all processors")
      ->type_name("N")
      ->check(CLI::Range(1, 256).description(""));
  run.footer(kRunFooter);

  CLI::App& check = *app->add_subcommand("check", kCheckAbout);
  AddBundle(check, options);
  check.footer(kCheckFooter);
  return app;
}

}  // namespace brvhost
