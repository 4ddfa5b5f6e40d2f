"""Measures every figure and writes build/bench/report.md with its plots. Called by scripts/bench.sh.

report.py BUILD_FOLDER RESULT_FOLDER [--quick] [--figures NAME,...] [--beside BRVHOST]
"""

import argparse
import datetime
import os
import pathlib
import platform
import re
import shutil
import subprocess
import sys

import measure
import plots
import scores

ROOT = pathlib.Path(__file__).resolve().parents[2]
SHARED = pathlib.Path(os.environ.get("BRV_SHARED_DIR", ROOT.parent / "shared"))
PEERS = ROOT / "bench" / "peers"
PYTHON = "/usr/bin/python3"  # the one that the distribution's lxml is for
FIGURE = re.compile(r"^(.*?) +([\d.]+) ns +([\d.]+) ns +ratio ([\d.]+) \(([\d.]+), ([\d.]+), ([\d.]+)\)$", re.MULTILINE)
MEGABYTE = 1_000_000
ROUNDS = 5
MANY = 10_000
HIDE_IN_LINE = r's/<note([ >])/<note print-leger="no"\1/'  # what sed and perl take alike
PEER_GOALS = {  # of the main job: of wall and of processor time
    "xsltproc": ("at least 6", ""), "lxml": ("at least 4", ""), "ElementTree": ("at least 14", ""),
    "sed": ("at least 1", ""), "perl": ("at least 1", ""), "pugixml": ("at least 1", "at least 1"), "expat": ("at least 1", "")}
FIGURES = ("bridge", "cleaning", "walk", "text", "records", "main_job", "compressed", "batch", "many", "beside")


class Report:
    def __init__(self, arguments):
        self.quick = arguments.quick
        self.other = arguments.beside
        self.build = arguments.build
        self.folder = arguments.result
        self.work = self.folder / "work"
        self.work.mkdir(parents=True, exist_ok=True)
        self.lines = []
        self.quartet = scores.largest_quartet(SHARED / "scores" / "quartets")
        self.score = self.quartet or ROOT / "samples" / "piano.musicxml"

    def say(self, *lines):
        self.lines += lines

    def table(self, head, rows):
        self.say("", "| " + " | ".join(head) + " |", "|" + "---|" * len(head))
        self.say(*("| " + " | ".join(map(str, row)) + " |" for row in rows), "")

    def program(self, name, *arguments):
        return subprocess.run([self.build / "bench" / name, *map(str, arguments)], check=True, capture_output=True,
                              text=True, cwd=self.work).stdout

    def small_figures(self, title, goals, output):
        """A table of what a program prints; `goals` gives the goal of each line by a part of its text."""
        self.say(f"## {title}")
        rows = []
        for text, first, second, best, least, median, greatest in FIGURE.findall(output):
            goal = next((goal for part, goal in goals.items() if part in text), "")
            rows.append((text, first, second, best, f"{least}, {median}, {greatest}", goal))
        self.table(("figure", "first, ns", "second, ns", "ratio", "least, median, greatest", "goal"), rows)

    def write(self):
        (self.folder / "report.md").write_text("\n".join(self.lines) + "\n")

    # The figures, one function each.

    def machine(self):
        cpu = next((line.split(":")[1].strip() for line in open("/proc/cpuinfo") if line.startswith("model name")), "?")
        self.say("# Performance", "", f"{datetime.date.today()}, {cpu}, {os.cpu_count()} cores, {platform.platform()}.",
                 "Every ratio is of two things measured in turn within one run.", "")

    def bridge(self):
        output = self.program("bench-bridge")
        self.small_figures("1. A call to the host", {"lookup": "at least 50", "bridge / plain": "at most 1.3"}, output)
        times = {text: float(time) for text, time, *_ in FIGURE.findall(output)}
        number, pointer = (next(time for text, time in times.items() if part in text) for part in ("16-bit", "pointer at once"))
        self.say(f"A 16-bit result costs {number - pointer:.1f} ns more than a pointer: it is extended once the host's function has "
                 "returned, so that the call cannot be a jump.", "")

    def cleaning(self):
        output = self.program("bench-cleantgf")
        self.small_figures("2. Cleaning frames", {"chords of 3:": "at most 6"}, output)
        ratios = {}
        for text, _, _, ratio, *_ in FIGURE.findall(output):
            ratios.setdefault(f"{text.split()[0]} chords", []).append(ratio)
        plots.cleaning(self.folder / "cleaning.svg", ratios)
        self.say("![Cleaning by notes a chord](cleaning.svg)", "")

    def walk(self):
        output = self.program("bench-walk", self.score)
        frames, entries, places = map(int, re.match(r"(\d+) frames of (\d+) entries in (\d+) places", output).groups())
        self.small_figures("3. The command's walk", {"the walk": "at most 1.2", "the same": "at most 1.2"}, output)
        (_, walk, bare, *_), (_, silent, *_), (_, _, asking, *_) = FIGURE.findall(output)
        walk, bare, silent, asking = (float(time) / 1000 for time in (walk, bare, silent, asking))
        self.say(f"The walk takes {walk:.0f} us for {entries} entries. The bare loop, which has its frames at hand, takes {bare:.0f}; "
                 f"{asking - bare:.0f} more go to asking the host for {places} places, of which {places - frames} hold no frame, and "
                 f"{walk - silent:.0f} to a report of progress after each frame, which reads the keyboard and the clock.", "")

    def text(self):
        long_texts = {f"{length} units": "at least 4" for length in (1024, 65536)}
        self.small_figures("4. ICU's functions beside the bx_ functions", {**long_texts, "units": "at least 1"},
                           self.program("bench-bxstring"))

    def records(self):
        if not (self.build / "bench" / "bench-edata").exists():
            return
        self.small_figures("5. Preference records", {"loading": "at most 2"}, self.program("bench-edata"))

    def hide(self, *arguments):
        """The command that hides all ledger lines."""
        return [str(self.build / "bin" / "brvhost"), "run", str(self.build / "LegerLines.bundle"), "--item", "0", "--all",
                *map(str, arguments)]

    def commands(self, source, suffix):
        """What each tool does to the score, by name: the command; its result; the results that come by standard output."""
        source = str(source)
        out = {name: str(self.work / f"out-{name}{suffix}")
               for name in ("brvhost", "xsltproc", "lxml", "ElementTree", "pugixml", "sed", "perl", "cp")}
        peers = self.build / "bench"
        commands = {
            "brvhost": self.hide(source, "-o", out["brvhost"]),
            "xsltproc": ["xsltproc", "--nonet", "--novalid", "-o", out["xsltproc"], str(PEERS / "hide.xsl"), source],
            "lxml": [PYTHON, str(PEERS / "hide_lxml.py"), source, out["lxml"]],
            "ElementTree": [PYTHON, str(PEERS / "hide_etree.py"), source, out["ElementTree"]],
            "pugixml": [str(peers / "hide-pugixml"), source, out["pugixml"]],
            "sed": ["sed", "-E", HIDE_IN_LINE, source],
            "perl": ["perl", "-pe", HIDE_IN_LINE, source],
            "cp": ["cp", source, out["cp"]],
            "expat": [str(peers / "parse-expat"), source],
            "pugixml, parse": [str(peers / "parse-pugixml"), source],
        }
        present = {name: command for name, command in commands.items() if shutil.which(command[0])}
        return present, out, {name: out[name] for name in ("sed", "perl")}

    def content_hash(self, path):
        return subprocess.run([self.build / "bench" / "content-hash", path], check=True, capture_output=True,
                              text=True).stdout

    def check_results(self, names, out):
        """Each peer's result has the same content as ours."""
        ours = self.content_hash(out["brvhost"])
        for name in names:
            if name in out and name not in ("brvhost", "cp") and self.content_hash(out[name]) != ours:
                raise RuntimeError(f"{name} gives another result than brvhost")

    def main_job(self):
        self.say("## 6. The main job, from file to file",
                 "", "Times are medians. Every ratio is of the tool's time to brvhost's, so that larger is better for brvhost. A "
                 "peer's time counts only after its result was found to be the same; expat and \"pugixml, parse\" parse "
                 "and do nothing else.", "")
        sizes = {"the score": 0, "10 MB": 10 * MEGABYTE}
        if not self.quick:
            sizes |= {"100 MB": 100 * MEGABYTE, "1000 MB": 1000 * MEGABYTE}
        points = {}
        for label, size in sizes.items():
            self.one_size(label, size, points)
        plots.growth(self.folder / "time.svg", points, 1, "seconds")
        plots.growth(self.folder / "memory.svg", points, 2, "bytes")
        self.say("![Time over size](time.svg)", "", "![Memory over size](memory.svg)", "")

    def one_size(self, label, size, points):
        source = self.work / "score.musicxml"
        scores.stacked(scores.unpacked(self.score), size, source)
        size = source.stat().st_size
        commands, out, outputs = self.commands(source, ".musicxml")
        memory = {name: measure.memory_of(command) for name, command in commands.items()}
        failed = sorted(name for name in commands if memory[name] is None)
        costs = measure.side_by_side({name: commands[name] for name in commands if name not in failed},
                                     9 if size < 100 * MEGABYTE else ROUNDS, outputs)
        self.check_results(costs, out)
        rows = []
        for name, measured in costs.items():
            wall, processor = (measure.typical(measured, what) for what in ("wall", "processor"))
            goals = PEER_GOALS.get(name, ("", ""))
            ratios = ("", "") if name == "brvhost" else (measure.ratio(measured, costs["brvhost"], what)
                                                         for what in ("wall", "processor"))
            wall_ratio, processor_ratio = ratios
            rows.append((name, f"{wall:.3f}", f"{processor:.3f}", f"{memory[name] / size:.2f}", wall_ratio, goals[0],
                         processor_ratio, goals[1]))
            points.setdefault(name, []).append((size, wall, memory[name]))
        self.say(f"### {label}: {size} bytes")
        self.table(("tool", "wall, s", "processor, s", "memory / XML", "wall: median (least to greatest)", "goal",
                    "processor: median (least to greatest)", "goal"), rows)
        if failed:
            self.say(f"Of the tools, {', '.join(failed)} cannot process a score of this size on this machine.", "")
        for path in [source, *map(pathlib.Path, out.values())]:
            path.unlink(missing_ok=True)

    def compressed(self):
        if self.quartet is None:
            return
        self.say("### Compressed, the largest quartet")
        commands, out, _ = self.commands(self.quartet, ".mxl")
        commands = {name: commands[name] for name in ("brvhost", "lxml")}
        memory = {name: measure.memory_of(command) for name, command in commands.items()}
        costs = measure.side_by_side(commands, ROUNDS)
        results = {}
        for name in commands:
            unpacked = self.work / f"{name}.xml"
            unpacked.write_text(scores.unpacked(pathlib.Path(out[name])), "utf-8")
            results[name] = str(unpacked)
        self.check_results(commands, results)
        size = pathlib.Path(results["brvhost"]).stat().st_size
        rows = []
        for name, title in (("brvhost", "brvhost"), ("lxml", "lxml and zipfile")):
            best = min(costs[name], key=lambda cost: cost.wall)
            ratio = "" if name == "brvhost" else measure.ratio(costs[name], costs["brvhost"])
            rows.append((title, f"{best.wall:.3f}", f"{best.processor:.3f}", f"{memory[name] / size:.2f}", ratio,
                         "" if name == "brvhost" else "at least 4"))
        self.table(("tool", "wall, s", "processor, s", "memory / XML", "ratio: median (least to greatest)", "goal"), rows)

    def batch(self):
        if self.quartet is None:
            return
        self.say("## 7. A batch of all quartets")
        quartets = sorted(map(str, self.quartet.parent.glob("*.mxl")))
        command = self.hide(*quartets, "--out-dir", self.work / "batch", "--jobs")
        costs = measure.side_by_side({jobs: [*command, jobs] for jobs in ("1", "2")}, ROUNDS)
        self.table(("jobs", "wall, s", "times as fast", "goal"),
                   [(jobs, f"{min(cost.wall for cost in costs[jobs]):.2f}",
                     "" if jobs == "1" else measure.ratio(costs["1"], costs["2"]), "" if jobs == "1" else "at least 1.8")
                    for jobs in costs])
        self.say(f"Two processes that only count, side by side, do {measure.speed_of_two():.2f} times the work of one on this "
                 "machine: a batch gains more than that only where one of them waits for something else.", "")

    def many(self):
        """A batch of small scores, beside parsing them in one process."""
        count = MANY // 10 if self.quick else MANY
        small = scores.small_scores(SHARED / "scores" / "conformance", ROOT / "samples")
        folder = self.work / "many"
        sources = scores.copies(small, count, folder)
        (folder / "least").mkdir(exist_ok=True)
        peers = self.build / "bench"
        commands = {"expat": [str(peers / "parse-expat"), *sources],
                    "an empty process and a copy each": [str(peers / "least-batch"), str(folder / "least"), *sources],
                    "brvhost": self.hide(*sources, "--out-dir", folder / "out", "--jobs", "1"),
                    "brvhost, --jobs 2": self.hide(*sources, "--out-dir", folder / "out", "--jobs", "2")}
        costs = measure.side_by_side(commands, ROUNDS)
        self.say(f"## 9. A batch of {count} small scores", "",
                 f"{sum(os.path.getsize(source) for source in sources) / count:.0f} bytes a score on the average, beside as many "
                 "parses in one process, and beside what any batch costs that gives each score a process and a result on the "
                 "disk. Times are medians.", "")
        rows = []
        for name, measured in costs.items():
            ratio = "" if name == "expat" else measure.ratio(measured, costs["expat"], "processor")
            rows.append((name, f"{measure.typical(measured):.2f}", f"{measure.typical(measured, 'processor'):.2f}", ratio,
                         "at most 1.5" if name == "brvhost" else ""))
        self.table(("tool", "wall, s", "processor, s", "processor: median (least to greatest)", "goal"), rows)

    def beside(self):
        """This brvhost and another build of it, an earlier one for instance: what the processes of a run cost."""
        if self.other is None:
            return
        self.say("## 8. Beside another brvhost")
        sample = str(ROOT / "samples" / "piano.musicxml")
        small = sorted(map(str, (SHARED / "scores" / "conformance").glob("*.xml"))) or [sample]
        hide = self.hide()[1:]
        to_folder = ["--out-dir", str(self.work / "beside")]
        jobs = {"start-up (--version)": (["--version"], 10), "items": (["items", hide[1]], 10),
                "one small score": ([*hide, sample, *to_folder], 10),
                f"{len(small)} small scores": ([*hide, *small, *to_folder], 1),
                f"{len(small)} small scores, --jobs 2": ([*hide, *small, *to_folder, "--jobs", "2"], 1),
                "the score": ([*hide, str(self.score), *to_folder], 1)}
        rows = []
        for title, (arguments, rounds) in jobs.items():
            commands = {name: [str(program), *arguments] for name, program in
                        (("this", self.build / "bin" / "brvhost"), ("other", self.other))}
            costs = measure.side_by_side(commands, ROUNDS * rounds)
            wall = {name: min(cost.wall for cost in costs[name]) for name in costs}
            processor = {name: min(cost.processor for cost in costs[name]) for name in costs}
            rows.append((title, f"{wall['this'] * 1000:.1f}", f"{wall['other'] * 1000:.1f}",
                         measure.ratio(costs["this"], costs["other"]),
                         f"{processor['this'] * 1000:.1f}", f"{processor['other'] * 1000:.1f}"))
        self.table(("job", "wall, ms", "other's", "ratio: median (least to greatest)", "processor, ms", "other's"), rows)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("result", type=pathlib.Path)
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--beside", type=pathlib.Path, help="another brvhost, with the libraries that it needs")
    parser.add_argument("--figures", help="only these, with commas between them", default=",".join(FIGURES))
    arguments = parser.parse_args()
    report = Report(arguments)
    for figure in ("machine", *arguments.figures.split(",")):
        print(f"measuring: {figure.replace('_', ' ')}", file=sys.stderr, flush=True)
        os.sync()  # what one figure wrote is not to be written to the disk while the next is measured
        getattr(report, figure)()
        report.write()
    shutil.rmtree(report.work)
    print(report.folder / "report.md")


if __name__ == "__main__":
    main()
