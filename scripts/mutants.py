#!/usr/bin/env python3
"""Changes the sources in one place at a time, at random, and reports which changes the tests of their folder notice.

    scripts/mutants.py [--count N] [--seed N] [FOLDER...]    100 changes, seed 1, of the product folders, platform and host

Works on a copy in build/mutants; the sources themselves stay as they are. The tests run among processes
of their own, as a change may kill more than it should. A change that does not compile does not count. One that nobody notices has a test that is missing, or makes no difference: whoever reads the list decides.
"""

import argparse
import collections
import os
import pathlib
import random
import re
import shutil
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent
COPY = ROOT / "build" / "mutants"
BUILD = COPY / "build" / "release"
FOLDERS = ["extension", "util", "LIB", "BrvEDK", "platform", "host"]

# What is replaced, and by what. Operators have blanks around them, as the formatter leaves them.
REPLACED = [(re.compile(pattern), replacement) for pattern, replacement in [
    (r" == ", " != "), (r" != ", " == "), (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "),
    (r" && ", " || "), (r" \|\| ", " && "), (r" \+ ", " - "), (r" - ", " + "), (r" & ", " | "), (r" \| ", " & "),
    (r"\+\+", "--"), (r" \+= ", " -= "), (r" << ", " >> "),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"(?<=[ (\[])0(?=[;,)\] ])", "1"), (r"(?<=[ (\[])1(?=[;,)\] ])", "2"),
    (r"\bif \((?!const |auto |int |!)(.*)\) ", r"if (!(\1)) "), (r"\bif \(!", "if ("),
    (r"\breturn (?!true|false|\d)(\w+\(.*\));$", r"\1;"), (r"\bcontinue;", ";"), (r"\bbreak;", ";"),
    (r"(?<=^  )(\s*)(?!return|break|continue|using|delete|throw|\})[\w.>\-\[\]]+(\(.*\)| = .*|\+\+|);$", r"\1;"),
]]
# What says nothing about the work that is done.
LEFT_ALONE = re.compile(r"^\s*(//|#|static_assert|using |namespace |template|friend |[\w:<>*& ]+ = (delete|default);)")

Change = collections.namedtuple("Change", "path line before after")


def changes_of(path):
    for number, line in enumerate((ROOT / path).read_text().splitlines(), 1):
        if LEFT_ALONE.match(line):
            continue
        code, comment, rest = line.partition("  //")
        for pattern, replacement in REPLACED:
            for match in pattern.finditer(code):
                after = code[:match.start()] + match.expand(replacement) + code[match.end():] + comment + rest
                if after != line:
                    yield Change(path, number, line, after)


def is_built(path):
    return path.suffix in (".cpp", ".h") and not path.stem.endswith(("_mac", "_neon"))


def sources():
    files = subprocess.run([ROOT / "scripts" / "files.sh"], check=True, capture_output=True, text=True).stdout
    return [pathlib.Path(file) for file in files.split("\0")[:-1]]


def chosen(folders, count, seed):
    files = [file for file in sources() if is_built(file) and any(file.is_relative_to(folder) for folder in folders)]
    all_changes = [change for file in sorted(files) for change in changes_of(file)]
    return random.Random(seed).sample(all_changes, min(count, len(all_changes)))


def run(*command):
    return subprocess.run(command, cwd=COPY, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")


def among_own_processes():
    """The start of a command whose processes see no others."""
    alone = ["unshare", "--pid", "--fork", "--mount-proc", "--kill-child"]
    for words in (alone, [*alone, "--map-root-user"]):
        if subprocess.run([*words, "true"], capture_output=True).returncode == 0:
            return words
    raise SystemExit("mutants: the system gives this user no process namespace, in which the tests could kill nothing else")


def folders_of_tests(path):
    """Those of its own folder, and of the program where it is a part of that."""
    own = path.parent
    while not (COPY / "tests" / own).is_dir():
        own = own.parent
    tests = [f"tests/{own}"]
    return tests + ["tests/host/program"] if path.parts[0] == "host" else tests


def build(path):
    needed = [f"{folder}/all" for folder in folders_of_tests(path)] + ["LegerLines"]
    if path.parts[0] == "host":
        needed += ["brvhost", "faulty-bundles"]
    return run("cmake", "--build", str(BUILD), "--target", *needed)


def noticed_by(path):
    """The first test that fails, or none."""
    for folder in folders_of_tests(path):
        # Real scores, batches and calls that fail in turn take long, and what is installed is another matter.
        process = run(*among_own_processes(), "ctest", "--test-dir", str(BUILD / folder), "-j", str(os.cpu_count()), "--timeout", "120",
                           "--stop-on-failure", "-LE", "macho", "-E", r"scores$|batch$|allocations$|systemcalls$|install$|documentation$")
        if process.returncode != 0:
            failed = re.search(r"Test +#\d+: (\S+).*(Failed|Timeout|Exception|Subprocess aborted)", process.stdout)
            return failed.group(1) if failed else "a test"
    return None


def set_up():
    shutil.rmtree(COPY, ignore_errors=True)
    for file in sources():
        (COPY / file).parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(ROOT / file, COPY / file)
    subprocess.run(["cmake", "--preset", "release", "-DBRV_BUILD_TESTS=ON", "-DBRV_WERROR=OFF", "-DBRV_MACOS_TESTS=OFF"],
                   cwd=COPY, check=True, capture_output=True)
    subprocess.run(["cmake", "--build", str(BUILD)], cwd=COPY, check=True, capture_output=True)


def outcome(change):
    file = COPY / change.path
    content = file.read_text()
    lines = content.splitlines(keepends=True)
    lines[change.line - 1] = change.after + "\n"
    file.write_text("".join(lines))
    try:
        if build(change.path).returncode != 0:
            return "does not compile"
        test = noticed_by(change.path)
        return f"noticed by {test}" if test else "NOT NOTICED"
    finally:
        file.write_text(content)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--count", type=int, default=100)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("folders", nargs="*", default=FOLDERS)
    arguments = parser.parse_args()
    changes = chosen(arguments.folders, arguments.count, arguments.seed)
    set_up()
    for path in {change.path.parent: change.path for change in changes}.values():
        if test := noticed_by(path):
            raise SystemExit(f"mutants: {test} fails without any change")
    counts = collections.Counter()
    for change in changes:
        result = outcome(change)
        counts[result.split(" by ")[0]] += 1
        print(f"{result}: {change.path}:{change.line}: {change.before.strip()}  ->  {change.after.strip()}", flush=True)
    tried = counts["noticed"] + counts["NOT NOTICED"]
    print(f"{counts['noticed']} of {tried} changes are noticed; {counts['does not compile']} more do not compile")


if __name__ == "__main__":
    main()
