#include "host/commands/commandline.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "host/commands/argumentnames.h"
#include "host/commands/helpformatter.h"
#include "host/commands/helptexts.h"
#include "host/commands/itemoption.h"
#include "host/commands/optionvalues.h"

namespace brvhost {
namespace {

constexpr const char* kBundleAbout = "The extension: its bundle, a folder, or its name, as `brvhost list` has it";

void AddBundle(CLI::App& command, Options& options) {
  command.add_option(kBundleArgument, options.bundle, kBundleAbout)->required()->type_name("");
}

void AddBundles(CLI::App& command, Options& options) {
  command.add_option(kBundleArgument, options.bundles, kBundleAbout)->type_name("");
}

// An option with a value. `read` is given the option's long name and the value; what it throws comes out of the
// parsing.
template <class Read>
CLI::Option* AddValue(CLI::App& command, const std::string& names, const char* type, const char* about, Read read) {
  const std::string name = names.substr(names.find("--"));
  const auto take = [name, read](const std::string& value) { read(name, value); };
  return command.add_option_function<std::string>(names, take, about)->type_name(type);
}

CLI::Option* AddText(CLI::App& command, const char* names, const char* type, std::string& text, const char* about) {
  return AddValue(command, names, type, about, [&text](const std::string& name, const std::string& value) {
    RefuseEmpty(name, value);
    text = value;
  });
}

template <class Size>
void AddSize(CLI::App& command, const char* name, Size& size, const char* about) {
  AddValue(command, name, "SIZE", about,
           [&size](const std::string& option, const std::string& value) { size = SizeFrom(option, value); });
}

struct Bounds {
  int first;
  int last;
};

template <class Number>
CLI::Option* AddNumber(CLI::App& command, const char* name, const char* type, Number& number, Bounds bounds,
                       const char* about) {
  return AddValue(command, name, type, about, [&number, bounds](const std::string& option, const std::string& value) {
    number = NumberFrom(option, value, bounds.first, bounds.last);
  });
}

// One that may be very large.
CLI::Option* AddCount(CLI::App& command, const char* name, const char* type, std::optional<std::int64_t>& count,
                      std::int64_t first, const char* about) {
  return AddValue(command, name, type, about, [&count, first](const std::string& option, const std::string& value) {
    count = NumberFrom(option, value, first, std::numeric_limits<std::int64_t>::max());
  });
}

constexpr Bounds kSeconds = {1, 1'000'000};
constexpr Bounds kJobs = {1, 256};

// Without a value.
CLI::Option* AddFlag(CLI::App& command, const char* names, bool& flag, const char* about) {
  return command.add_flag(names, flag, about)->disable_flag_override();
}

void AddConfinement(CLI::App& command, bool& confines, const char* names) {
  AddFlag(command, names, confines, "Let the extension write no file, use no network and start no program");
}

void AddTrace(CLI::App& command, Options& options) {
  constexpr const char* kGroup = "Trace";
  command
      .add_flag("--trace{-}", options.trace,
                "Write each call between the extension and brvhost to this file, or to the standard error")
      ->type_name("[=FILE]")
      ->group(kGroup);
  AddFlag(command, "--trace-times", options.traceTimes, "In the trace, with the time that each call took")
      ->group(kGroup);
}

void AddScores(CLI::App& command, Options& options) {
  command
      .add_option(kScoreArgument, options.scores,
                  "MusicXML: .musicxml, .xml or .mxl; - is the standard input; a folder with --recursive")
      ->type_name("");
  AddText(command, kScoreList, "FILE", options.filesFrom,
          "Take more scores from this file, or from the standard input with -: one name on each line");
  AddFlag(command, "-0,--null", options.endsNamesWithZero,
          "In that file, a character 0 ends each name, not a line break");
  AddFlag(command, "-r,--recursive", options.recursive, "Take the scores in folders, and in those below them");
  AddSize(command, "--max-size", options.maxSize,
          "The most that a compressed score may unpack to, or a pipe may bring: a number of bytes, or with KB, MB, GB "
          "(1 GB)");
  AddSize(command, "--max-memory", options.maxMemory,
          "The most memory that the work on a score may take (1 GB, or 16 times the size of a large file)");
}

// Each occurrence has one value.
CLI::Option* AddTexts(CLI::App& command, const char* name, const char* type, std::vector<std::string>& texts,
                      const char* about) {
  const auto take = [name, &texts](const std::vector<std::string>& values) {
    for (const std::string& value : values) RefuseEmpty(name, value);
    texts = values;
  };
  return command.add_option_function<std::vector<std::string>>(name, take, about)
      ->type_name(type)
      ->allow_extra_args(false);
}

void AddRegion(CLI::App& run, Options& options) {
  const auto add = [&run](const char* name, std::string& value, const char* type, const char* about) {
    AddText(run, name, type, value, about)->group("Region");
  };
  add("--staves", options.staves, "LIST", "Only these staves: 1,3,5-8");
  AddTexts(run, "--parts", "NAMES", options.parts, "Only the staves of these parts: \"Violin I,Viola\"")
      ->group("Region");
  add("--measures", options.measures, "LIST",
      "Only these measures, by their order (1,3,5-8) or by their printed numbers (m12-m20)");
  add("--start-at", options.startAt, "Q", "In the first measure, only from Q quarter notes on: 2, 5/2 or 2.5");
  add("--end-at", options.endAt, "Q", "In the last measure, only up to Q quarter notes, itself included");
  add("--layers", options.layers, "LIST", "Only these layers; the others count as hidden");
  add("--voices", options.voices, "NAMES", "Only these voices of each part: 1,2");
  AddFlag(run, "--all", options.all, "The whole score")->group("Region");
}

void AddTargets(CLI::App& run, Options& options) {
  constexpr const char* kGroup = "Result (exactly one of these)";
  AddText(run, "-o,--output", "FILE", options.output,
          "Write to this file, or to the standard output with -; for a single score")
      ->group(kGroup);
  AddFlag(run, "--in-place", options.inPlace, "Write to the score itself, if anything changed")->group(kGroup);
  AddText(run, "--out-dir", "DIR", options.outputFolder,
          "Write to this folder, under the score's name; with --recursive, in folders as the score's")
      ->group(kGroup);
  AddFlag(run, "--dry-run", options.dryRun, "Write nothing; report what would change")->group(kGroup);
}

CLI::Option* AddJson(CLI::App& command, Options& options, const char* about) {
  return AddFlag(command, "--json", options.json, about);
}

void AddReports(CLI::App& run, Options& options) {
  AddJson(run, options, "Print what became of each score as a line of JSON; all else goes to the standard error")
      ->group("Report");
  AddFlag(run, "--list", options.list, "Print each entry that changes: its line in the file and its place in the music")
      ->group("Report");
  AddFlag(run, "-q,--quiet", options.quiet, "Print only what went wrong, and what --list and --json ask for")
      ->group("Report");
  AddFlag(run, "-v,--verbose", options.verbose, "Name each score as it ends, also where there are several")
      ->group("Report");
}

void AddFacts(CLI::App& check, Options& options) {
  AddFlag(check, kFactList, options.list, "List the facts instead: the name, the severity and the sentence of each");
  AddText(check, "--include", "REGEX", options.include, "Only the facts that have this in their names");
  AddText(check, "--exclude", "REGEX", options.exclude, "Not the facts that have this in their names");
}

void AddCheckReports(CLI::App& check, Options& options) {
  constexpr const char* kGroup = "Report";
  AddFlag(check, "--only-failed", options.onlyFailed, "Leave the facts out that hold")->group(kGroup);
  AddJson(check, options, "Print each fact and each bundle as a line of JSON; the summary goes to the standard error")
      ->group(kGroup);
  AddText(check, "--junit", "FILE", options.junit, "Write the results to this file, too, as JUnit's XML")
      ->group(kGroup);
}

}  // namespace

std::unique_ptr<CLI::App> DescribeCommandLine(Options& options, const std::string& version) {
  auto app = std::make_unique<CLI::App>(kAbout, "brvhost");
  app->formatter(std::make_shared<HelpFormatter>());  // and of the commands, which are added later
  app->require_subcommand(1);
  app->footer(kCommonFooter);
  app->set_version_flag("--version", "brvhost " + version, "Print the version and exit");
  app->set_help_flag("-h,--help", "Print this help and exit");

  CLI::App& list = *app->add_subcommand("list", kListAbout);
  AddJson(list, options, "Print each extension as a line of JSON");
  list.footer(kListFooter);

  CLI::App& items = *app->add_subcommand("items", kItemsAbout);
  AddBundle(items, options);
  AddConfinement(items, options.confines, "--confine");
  AddJson(items, options, "Print each item as a line of JSON");
  items.footer(kItemsFooter);

  CLI::App& info = *app->add_subcommand("info", kInfoAbout);
  AddScores(info, options);
  AddJson(info, options, "Print what is known of each score as a line of JSON");
  info.footer(kInfoFooter);

  CLI::App& run = *app->add_subcommand("run", kRunAbout);
  AddBundle(run, options);
  AddScores(run, options);
  AddValue(
      run, "--item", "ITEM",
      "The menu item: its number, as `brvhost items` has it, or its name or a part of that, in any language of the "
      "extension",
      [&options](const std::string& option, const std::string& value) { TakeItem(option, value, options); })
      ->required();
  AddTargets(run, options);
  AddRegion(run, options);
  AddReports(run, options);
  AddTrace(run, options);
  AddFlag(run, "--yes", options.yes, "Agree to every question");
  AddNumber(run, "--jobs", "N", options.jobs, kJobs,
            "Work on up to N scores at a time; a single score has all processors");
  AddNumber(
      run, "--timeout", "SECONDS", options.timeout, kSeconds,
      "End the work of the extension on a score, or the reading of one, that takes longer; by default nothing does");
  AddConfinement(run, options.confines, "--confine");
  run.footer(kRunFooter);

  CLI::App& check = *app->add_subcommand("check", kCheckAbout);
  AddBundles(check, options);
  AddFacts(check, options);
  AddNumber(check, "--timeout", "SECONDS", options.factTimeout, kSeconds, "A fact that takes longer has failed (10)");
  AddConfinement(check, options.checkConfines, "--confine,!--no-confine");
  AddFlag(
      check, "--in-process", options.inProcess,
      "Check one fact in brvhost itself, for a debugger: neither confined nor silenced, and without a limit of time");
  AddFlag(check, "--strict", options.strict, "Warnings count for the exit status, too");
  AddCheckReports(check, options);
  AddTrace(check, options);
  check.footer(kCheckFooter);

  CLI::App& fuzz = *app->add_subcommand("fuzz", kFuzzAbout);
  AddBundle(fuzz, options);
  AddCount(fuzz, "--seed", "N", options.seed, 0,
           "The seed of the first round, each after it has the next (a random one)");
  AddNumber(fuzz, "--time", "SECONDS", options.fuzzTime, kSeconds, "Play rounds for that long (10, without --rounds)");
  AddCount(fuzz, "--rounds", "N", options.rounds, 1, "Play that many rounds");
  AddNumber(fuzz, "--jobs", "N", options.jobs, kJobs, "Play rounds in N processes at a time");
  AddNumber(fuzz, "--timeout", "SECONDS", options.roundTimeout, kSeconds, "A round that takes longer hangs (10)");
  AddConfinement(fuzz, options.checkConfines, "--confine,!--no-confine");
  AddCount(fuzz, kReproduce, "SEED", options.reproduce, 0,
           "Play the round of this seed in brvhost itself, neither confined nor silenced, and write each call to the "
           "standard error");
  AddJson(fuzz, options, "Print each finding and the end as a line of JSON; the summary goes to the standard error");
  fuzz.footer(kFuzzFooter);

  CLI::App& calls = *app->add_subcommand("calls", kCallsAbout);
  AddJson(calls, options, "Print each function as a line of JSON");
  calls.footer(kCallsFooter);

  CLI::App& make = *app->add_subcommand("new", kNewAbout);
  make.add_option("NAME", options.newName, "The name of the folder, of the bundle and of its executable")
      ->required()
      ->type_name("");
  AddText(make, "--identifier", "ID", options.identifier, "The identifier of the bundle (org.example.NAME)");
  AddText(make, "--languages", "LIST", options.languages,
          "The languages that it has texts in: en,de,pt-BR; English is always among them (en)");
  make.footer(kNewFooter);

  CLI::App& help = *app->add_subcommand("help", kHelpAbout);
  help.add_option(kCommandArgument, options.explained, "The command; without one, brvhost as a whole")->type_name("");
  help.footer(kHelpFooter);
  return app;
}

}  // namespace brvhost
