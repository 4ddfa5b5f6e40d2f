"""What the report of the coverage counts, and when it fails."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

REPORT = pathlib.Path(__file__).parents[2] / "scripts" / "coverage" / "report.py"
HEAD = "folder                           lines          branches\n"
# Four lines of code, and three decisions; for the second the first must be true.
HALF = """\
int Sign(int number) {
  if (number < 0 && number != -3)
    return -1;
  return number > 0 ? 1 : 0;
}
"""
# No decision but one, both of whose branches are taken: the others are exceptions', and the guard of a static.
WHOLE = """\
#include <string>

std::string Twice(const std::string& text);

std::size_t Length(const std::string& text) {
  static const std::size_t start = text.size();
  const std::string twice = Twice(text);
  if (twice.empty()) return start;
  return Twice(twice + text).size();
}

std::string Twice(const std::string& text) { return text + text; }
"""


class Coverage(unittest.TestCase):
    def report(self, sources, main, marks):
        """The finished report on sources of a program whose main has that body, and the list of what was not reached."""
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name).resolve()
            for source, text in sources.items():
                (folder / source).parent.mkdir(parents=True, exist_ok=True)
                (folder / source).write_text(text)
            (folder / "build").mkdir()
            (folder / "main.cpp").write_text(main)
            for source in (*sources, "main.cpp"):
                target = folder / "build" / (source.replace("/", "-") + ".o")
                subprocess.run(["g++", "-std=c++20", "-O0", "--coverage", "-c", folder / source, "-o", target], check=True)
            program = folder / "build" / "program"
            subprocess.run(["g++", "--coverage", *(folder / "build").glob("*.o"), "-o", program], check=True)
            subprocess.run([program], check=True)
            (folder / "marks.txt").write_text(marks)
            process = subprocess.run([sys.executable, "-B", REPORT, "build", "marks.txt", "uncovered.txt"], cwd=folder,
                                     capture_output=True, text=True)
            uncovered = folder / "uncovered.txt"
            return process, uncovered.read_text() if uncovered.exists() else ""

    def test_sums_up_the_files_of_a_folder_and_the_folders_of_the_host(self):
        main = "int Sign(int);\nint Other(int);\nint main() { Sign(0), Sign(1), Other(5), Other(-5); }\n"
        other = HALF.replace("Sign", "Other").replace("? 1 : 0", "? 1 : 2")
        process, uncovered = self.report({"host/xml/sign.cpp": HALF, "host/other.cpp": other}, main,
                                         "host 87.5 70\nhost/xml 75 75\n")
        self.assertEqual((process.returncode, process.stderr), (0, ""))
        self.assertEqual(process.stdout, HEAD + "host                   87.5 % of     8   70.0 % of    10\n"
                                                "host/xml               75.0 % of     4   75.0 % of     4\n")
        self.assertEqual(uncovered, "host/other.cpp:2: 1 of 4 branches not taken\nhost/other.cpp:4: 1 of 2 branches not taken\n"
                                    "host/xml/sign.cpp:2: 1 of 2 branches not taken\nhost/xml/sign.cpp:3: not reached\n")

    def test_branches_of_exceptions_and_of_statics_do_not_count(self):
        main = ('#include <string>\nstd::size_t Length(const std::string&);\n'
                'int main() { Length(""), Length("ab"); }\n')
        process, uncovered = self.report({"util/length.cpp": WHOLE}, main, "util 100 100\n")
        self.assertEqual((process.returncode, process.stderr, uncovered), (0, "", ""))
        self.assertEqual(process.stdout, HEAD + "util                  100.0 % of     6  100.0 % of     2\n")

    def test_a_folder_below_its_marks_fails_and_is_named(self):
        process, _ = self.report({"LIB/sign.cpp": HALF}, "int Sign(int);\nint main() { Sign(0); }\n", "LIB 75.1 50.1\n")
        self.assertEqual(process.returncode, 1)
        self.assertEqual(process.stderr, "coverage: LIB: 75.0 % of its lines are covered, and 75.1 % were before\n"
                                         "coverage: LIB: 50.0 % of its branches are covered, and 50.1 % were before\n")

    def test_folders_and_marks_belong_together(self):
        process, _ = self.report({"util/sign.cpp": HALF}, "int Sign(int);\nint main() { Sign(0); }\n",
                                 "# The marks.\nLIB 0 0\n")
        self.assertEqual(process.returncode, 1)
        self.assertEqual(process.stderr, "coverage: LIB: has marks, and no code\ncoverage: util: has no marks\n")


if __name__ == "__main__":
    unittest.main()
