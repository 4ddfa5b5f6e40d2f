// What the help, the manual pages and the completions explain at length.
#pragma once

namespace brvhost {

inline constexpr const char* kAbout =
    "Runs extensions of the Brevix music-notation application on MusicXML scores, without the application.";

inline constexpr const char* kCommonFooter = R"(MORE HELP
  On a command, such as run: `brvhost help run`, `brvhost run --help`, or its manual page, `man brvhost-run`.

EXIT STATUS
  0    done
  1    a result or what is printed could not be written, an extension failed, or a check failed
  2    bad usage, or a score that cannot be used
  3    a bundle that cannot be used
  130  interrupted

EXAMPLES
    brvhost items LegerLines
    brvhost run LegerLines --item hide --all sonata.xml -o hidden.xml
    brvhost run LegerLines --item hide --all --out-dir hidden scores/*.mxl)";

inline constexpr const char* kListAbout =
    "Lists the extensions that are installed, one to a line: its name, its version, its languages, the systems that it "
    "has executables for, and the path of its bundle, with tabs between them. No code of theirs is run.";

inline constexpr const char* kListFooter = R"(INSTALLED EXTENSIONS
  An extension that is installed is found by its name, the one of its bundle without the ending: LegerLines for
  LegerLines.bundle. Bundles are looked for in the folders that the variable BRVHOST_PATH lists, with colons between
  them; then in the user's, $XDG_DATA_HOME/brvhost or ~/.local/share/brvhost; then in the one that is installed with
  brvhost. Of two with the same name the first is found. The other is listed, too, with what hides it at the end of its
  line. A name with a slash in it, and one that something in the working folder has, is a path.

EXIT STATUS
  0    done
  1    the list could not be written
  2    bad usage
  3    a bundle that cannot be used here, named on the standard error; the others are listed
  130  interrupted)";

inline constexpr const char* kItemsFooter = R"(EXIT STATUS
  0    done
  1    the list could not be written, or the extension failed when it was ended
  2    bad usage
  3    a bundle that cannot be used
  130  interrupted)";

inline constexpr const char* kInfoFooter = R"(EXIT STATUS
  0    done
  1    there is not enough memory for a score, or the report could not be written; the other scores are still reported
  2    bad usage, or a score that cannot be used; the other scores are still reported
  130  interrupted)";

inline constexpr const char* kCallsAbout =
    "Lists the functions that an extension can ask its host for, one to a line: its name, whether brvhost serves it or "
    "else what each call returns, and what the function is about, with tabs between them.";

inline constexpr const char* kCallsFooter = R"(EXIT STATUS
  0    done
  1    the list could not be written
  2    bad usage
  130  interrupted)";

inline constexpr const char* kItemsAbout =
    "Lists the menu items of an extension, one to a line: its number, its name in the menu, its name in the Undo "
    "command, and its explanation, with tabs between them. A mistake in a file of its texts is reported with the line.";

inline constexpr const char* kInfoAbout =
    "Reports what each score holds: its parts with their staves, the number of measures, how their order goes with the "
    "printed numbers where these differ (in parentheses those that are not printed, as of a pick-up), the layers of "
    "each staff that "
    "hold something, with the voices that they have in the file where these are numbered otherwise, its notes, chords "
    "and rests, how many of them have hidden ledger lines, and each chord of which only some notes have: its staff, "
    "measure, layer and position in quarter notes.";

inline constexpr const char* kRunAbout =
    "Runs one menu item of an extension on each score, and writes the result. A result differs from its score in the "
    "attribute print-leger of those notes that the extension changed, and in nothing else.";

inline constexpr const char* kRunFooter = R"(THE ITEM
  --item takes a number, as `brvhost items` has it, or a name: the whole name of an item, else what a name starts with,
  else a part of one, in any language that the extension has its texts in, and without regard to case. What fits several
  items is refused with a list of these.

THE REGION
  With any of --staves, --parts, --measures, --start-at and --end-at, the extension works on that region; an end that is
  not given is that of the score. With --all, or with --layers or --voices alone, it is the whole score. With none of
  these nothing is selected: the extension asks whether it may work on the whole score. Where there is no terminal to
  ask on, this is bad usage, unless --yes agrees beforehand.

  Staves count from 1 through all parts, measures from 1 by their order, and the layers of a staff from 1, in the order
  in which its voices first appear. Each is a list of ranges, in any order: 3, 2-5, 2-, -5 or 1,3,5-8. One list may serve
  many scores: a last staff, measure or layer beyond the score is taken for the score's last, and --end-at does not apply
  in a measure beyond the score. A range that starts at a staff or a measure that the score does not have is refused, and
  so are a layer that none of the region's staves has, a position beyond the end of its measure, and a region that starts
  after its end.

  A measure is named by its printed number with an m: m12, m12-m20, m12- or -m20; m1 is what is printed as 1, whatever
  comes before it. A number that is not printed, as that of a pick-up or the rest of a measure that is split (m0, mX1),
  counts where no printed number is the same. Where several measures have a number, m12/2 is the second of them. Numbers
  are those of the first part; a dash, a comma or a slash within one follows a backslash. `brvhost info` shows which
  measures have which numbers.

  --parts names parts instead of staves, by their names, abbreviations or IDs; where no part has a name as it is written,
  case does not count. A name that several parts have takes all of them. A name with a comma in it is given by itself; the
  option may be repeated. --voices names voices as the file does, instead of layers: of each staff only the layers of
  these are shown, and staves that have none of them are left out.

  An extension works on one block at a time: staves and measures next to one another. Where the lists leave any out, the
  item is run once for each block, by staves and then by measures, on the same open score, which is written once. An item
  that shows a message shows it for each block; Ctrl-C ends all. --start-at counts in the first measure of the whole
  region, --end-at in the last.

WHILE IT RUNS
  On a terminal, a bar shows the progress. Ctrl-C is to the extension what Command-period is in the application: it
  ends, nothing is written, and the exit status is 130. A second Ctrl-C does not wait for the extension, and ends
  whatever it has started; so do SIGTERM and a terminal that hangs up. Questions are asked on the terminal; without one
  the answer is no, or yes with --yes.

  The extension runs in a process that opens no score: one that crashes, hangs (--timeout) or misbehaves costs one
  score, which stays as it is. With --confine it may read files, but write none, use no network and start no program;
  it may still send signals to other processes of yours. What it prints is shown on the standard error, under its name.

  Hiding and showing ledger lines is all that a score can take. When the extension changes anything else, such as the
  notes of an entry or their positions, nothing is written, and the exit status is 1.

MISSING FUNCTIONS
  An extension may ask for host functions that brvhost does not have; the kit answers for them, as `brvhost calls` has it.
  They are named once, at the end of the run; with --verbose, as soon as they are known.

THE TRACE
  With --trace each call of a host function has a line when it has returned, with its arguments, its result, and what
  brvhost has written to the arguments. The calls of the extension's entry points have a line before it, too, and the
  calls that are made in them are indented. Staves and measures count from 1, layers from 0, as in the interface. Texts
  are shown as texts, frames by their places; other addresses only as a pointer, so that two traces of the same run are
  equal. A function that brvhost does not have is named when the extension asks for it. Where there are several scores,
  each line begins with its score. The file is replaced; with --trace alone, the lines are on the standard error.

WHAT IT REPORTS
  For a single score, how many of its entries (notes, chords and rests) have changed; for several, how many scores have,
  and with --verbose the entries of each. With --dry-run each score is named with its entries that would change. With
  --list each of these has a line: the score, the line in it (in its member, for an .mxl) of the entry's first note, then
  staff, measure, layer, position in quarter notes, and whether its ledger lines are hidden or shown now. It is printed
  when the score is written. With --quiet there are no warnings, no bar, nothing from the extension, and no counts.

  With --json each score has a line of JSON on the standard output, as it ends, and all else goes to the standard error:
  "score", "target", "status" (written, unchanged, wouldChange, badInput, failed, interrupted or notRun), "retry",
  "counts", "region", "warnings", "missingFunctions", "error", and "changes" with --list.

REPEATING A RUN
  The same command may succeed after exit status 130, and after 1 where something was lacking or in the way (memory,
  space on the disk, another run, the time of --timeout). It will not after 2 and 3, nor after 1 where the extension is
  what failed. "retry" of --json has the answer for each score. What is done already comes out the same.

SCORES
  A score is compressed or not by its content, whatever its name; so is the one on the standard input (-). A file whose
  name is "-" is written ./-, but stands as it is in a list (--files-from), whose lines may also end as on Windows.

  In a folder (--recursive), files that are named .musicxml, .xml or .mxl are scores, in the order of their names. Each
  is taken once, under however many names. Links to folders are not followed, and what begins with a dot is passed over.
  So is a file named .xml whose root element is another than a score's, since folders of scores have other documents in
  them, such as META-INF/container.xml; one that cannot be read so far counts as a score, and is reported. Results
  (--out-dir) are in folders as their scores are, so that equal names do not meet; a folder for results that lies in a
  folder of scores is not searched.

FILES
  A result on the standard output (-o -) goes there only when the whole score has been worked on, also when nothing
  changed; what is otherwise printed there is on the standard error then. A compressed one does not go to a terminal.

  Any other result is written beside its target and takes the target's name when it is complete, so that a failure leaves the
  old file whole. What a run leaves that was killed (.brvhost-*) is removed by the next that writes to the folder.
  Compressed scores (.mxl) stay compressed; their other members, and what follows the end of an archive, stay as they
  are. Where the folder of a result cannot be written to, the message names the folder.

  Only --in-place writes to a score. A file that another run is working on, or that somebody changes while brvhost works
  on it, stays as it is, and the exit status is 1.

  A file that is replaced passes on its permissions, its extended attributes and its access control list, and its owner
  where that is allowed. Where it has several names (hard links), the others keep the old content.

EXIT STATUS
  0    done, whether or not anything changed
  1    a result or what is printed could not be written, the extension failed or changed what a score cannot take, or a score needs too
       much memory; the other scores are done
  2    bad usage, or a score that cannot be used; the other scores are done
  3    a bundle that cannot be used
  130  interrupted

EXAMPLES
  Hide the ledger lines in the left hand of measures 5 to 8:
    brvhost run LegerLines --item hide --staves 2 --measures 5-8 a.xml -o b.xml
  Hide them in the outer parts of a quartet, up to measure 8:
    brvhost run LegerLines --item hide --staves 1,4 --measures -8 a.xml -o b.xml
  Show them again in a folder of scores, two at a time:
    brvhost run LegerLines --item show --all --in-place --jobs 2 -r scores
  Do the same to those that were changed since yesterday:
    find scores -name '*.mxl' -mtime -1 -print0 |
      brvhost run LegerLines --item show --all --in-place --files-from - -0)";

inline constexpr const char* kCheckAbout =
    "Checks extensions against the calling convention, each fact in a process of its own that may write no file, use "
    "no network and start no program: what it exports, its version, its menu items, and what it does with right and "
    "wrong calls. Prints one line for each fact, ok or what went wrong, and a summary.";

inline constexpr const char* kCheckFooter = R"(THE FACTS
  Each fact has a name, which its line ends with, and a severity. An error (FAILED) is a breach of the calling convention.
  A warning is about what the convention allows, but hosts or users suffer from. A note is for you to know. Facts that need
  one that failed are skipped.

  --include and --exclude take regular expressions (ECMAScript), which may stand anywhere in a name: "frees" is in
  frees-frames, "^ends-" at the start of ends-edits.

  Where a process did not end by itself, a second line has the command that checks the fact in a debugger:
    gdb --args brvhost check LegerLines --in-process --include frees-frames

THE TRACE
  With --trace each fact is named before the calls that were made to find out whether it holds. `brvhost run --help`
  explains their lines.

EXIT STATUS
  0    no fact failed; with --strict, there was no warning, either
  1    one did, or a result or what is printed could not be written
  2    bad usage
  3    there is no such bundle
  130  interrupted

EXAMPLES
  Check two extensions, show what does not hold, and write a report for a build server:
    brvhost check --only-failed --strict --junit a.xml A.bundle B.bundle
  Check all that is about texts:
    brvhost check --include texts LegerLines)";

inline constexpr const char* kFuzzAbout =
    "Plays random rounds with an extension: any item on any region of any score, with a user who answers anything and "
    "cancels at any time, in a host in which any call may fail. Prints each kind of fault once, with a seed that "
    "brings it back, and a summary. The rounds are played in processes that may write no file, use no network and "
    "start no program.";

inline constexpr const char* kFuzzFooter = R"(WHAT IS FOUND
  crash      a signal ends the process
  exit       the extension ends the process
  hang       it does not return
  exception  it throws
  frames     it leaves frames loaded, or makes wrong calls
  edits      it leaves an edit or a progress display open
  region     it changes entries outside of the region
  decline    nothing is selected and the user declines, and it still does something
  item       it does something for an item that it does not have
  memory     it writes to memory that is the host's
  shortage   it takes more than 1 GB of memory

THE ROUNDS
  All that is random in a round follows from its seed: the same version of brvhost plays the same round on any machine. Seeds
  follow each other, so --seed 5 --rounds 3 plays 5, 6 and 7. Without --rounds and --time, rounds are played for 10 seconds.
  Ctrl-C ends with the summary.

  One process plays many rounds, with the extension loaded once. Where a fault comes up only after other rounds, its line has
  the command that plays those, too.

THE TRACE
  With --reproduce the round is described before its calls. `brvhost run --help` explains their lines. A crash ends brvhost
  with the extension, for a debugger:
    gdb --args brvhost fuzz LegerLines --reproduce 1234

EXIT STATUS
  0    nothing was found
  1    something was, or what is printed could not be written
  2    bad usage
  3    a bundle that cannot be used
  130  interrupted

EXAMPLES
  Play a million rounds in two processes:
    brvhost fuzz LegerLines --rounds 1000000 --jobs 2
  Play the same rounds each time, on a build server:
    brvhost fuzz LegerLines --seed 1 --rounds 20000)";

inline constexpr const char* kNewAbout =
    "Makes the folder of a new extension in the working folder: its sources with one menu item, its texts, tests with "
    "a small score, and what builds it with CMake and the installed kit (libbrvedk-dev).";

inline constexpr const char* kNewFooter = R"(THE EXTENSION
  Its menu item hides the ledger lines of chords. It builds, and its tests pass, as it is: one drives the bundle in a host that the
  test scripts, one runs `brvhost check`, and one runs the item on a score and compares what it writes.

  Texts are there in German, English, French, Italian, Japanese and Spanish (de, en, fr, it, ja, es). For other languages the folder has
  the texts in English, with a comment.

  A name has letters from A to Z, digits, - and _, and begins with a letter or a digit. What is there already under that name stays as it
  is.

EXIT STATUS
  0    done
  1    the folder could not be made; nothing is left of it
  2    bad usage
  130  interrupted

EXAMPLES
    brvhost new WideLeaps --identifier com.example.wideleaps --languages en,de)";

inline constexpr const char* kHelpAbout = "Explains a command, or brvhost as a whole, with the same text as --help.";

inline constexpr const char* kHelpFooter = R"(EXIT STATUS
  0    done
  1    the text could not be written
  2    bad usage, such as an unknown command
  130  interrupted

EXAMPLES
    brvhost help run)";

}  // namespace brvhost
