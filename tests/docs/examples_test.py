"""The examples in the comments of the headers, and C++ in the documents: each compiles against the kit."""

import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import unittest

SOURCE, BUILD = pathlib.Path(os.environ["BRV_SOURCE"]), pathlib.Path(os.environ["BRV_BUILD"])
sys.path.insert(0, str(SOURCE / "scripts/docs"))
import comments  # noqa: E402

INCLUDE = BUILD / "include"
EXAMPLE = re.compile(r"^ *// Example:.*\n(?: *//\n)? *//   \S", re.M)
# What an example finds around it. Its own variables may have the same names.
FUNCTION = """
[](EREGION* region, EXTGF2005a* frame, int staff, int measure, int layer, short beats, UniChar* dst, const UniChar* src,
    std::size_t dstSize, eu16string text, const UniChar* kFormat, RecordingHost& host, TestScore& score) {{
  {{
#line {line} "{path}"
{code}
  }}
}};
"""


def function_of(path, line, code):
    return FUNCTION.format(path=path, line=line, code=code)


def kit_headers():
    return sorted([*(INCLUDE / "BrvEDK").iterdir(), SOURCE / "platform/include/brvplatform.h"])


def fenced(document):
    """The C++ of a document, each with the number of its first line."""
    found, start = [], None
    lines = document.read_text(encoding="utf-8").splitlines()
    for number, line in enumerate(lines, 1):
        if start is None and line == "```cpp":
            start = number
        elif start is not None and line == "```":
            found.append((start + 1, "\n".join(lines[start:number - 1]) + "\n"))
            start = None
    return found


class Examples(unittest.TestCase):
    maxDiff = None

    def compiled(self, code):
        # hostprototypes.inc is included by brevixpdk.h.
        includes = "".join(f'#include "{path}"\n' for path in kit_headers() if path.suffix == ".h")
        with tempfile.TemporaryDirectory() as folder:
            source = pathlib.Path(folder, "examples.cpp")
            source.write_text(f"{includes}void AllOfThem() {{\n{code}}}\n")
            return subprocess.run([*shlex.split(os.environ["CXX"]), "-std=c++20", "-fsyntax-only", "-w", f"-I{INCLUDE}",
                                   f"-I{SOURCE}/platform/include", source], capture_output=True, text=True)

    def test_in_headers_and_documents_compile(self):
        found = [(header, *example) for header in kit_headers() for example in comments.examples(header)]
        marked = [mark for header in kit_headers() for mark in EXAMPLE.findall(header.read_text(encoding="utf-8"))]
        self.assertGreater(len(marked), 0)
        self.assertEqual(len(found), len(marked))
        found += [(path, *example) for path in sorted((SOURCE / "docs").glob("*.md")) for example in fenced(path)]
        result = self.compiled("".join(function_of(*example) for example in found))
        self.assertEqual(result.stderr, "")
        self.assertEqual(result.returncode, 0)

    def test_that_do_not_compile_are_found(self):
        with tempfile.TemporaryDirectory() as folder:
            header = pathlib.Path(folder, "header.h")
            header.write_text("#pragma once\n\n// Loads.\n//\n// Example:\n//   BX_LoadNothing(staff);\nint A();\n")
            self.assertEqual(list(comments.examples(header)), [(6, "BX_LoadNothing(staff);\n")])
            result = self.compiled(function_of(header, 6, "BX_LoadNothing(staff);\n"))
        self.assertNotEqual(result.returncode, 0)
        self.assertRegex(result.stderr, r"header\.h:6:.*BX_LoadNothing")


if __name__ == "__main__":
    unittest.main()
