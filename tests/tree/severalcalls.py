"""Holds that each function of the bundle that can make more than one host call is tested with each of them failing: the
rows of kJobs name the same functions as the sources do.

    severalcalls.py ROOT

A call in a loop counts as several. Calls on two branches count as two. The older names of the entry points, which only
call the newer ones, are left out.
"""

import re
import sys
from pathlib import Path

from sources import texts

FOLDERS = ["BrvEDK/Source", "LIB", "util", "extension"]
ROWS = "tests/extension/failingcalls/failingcalls_test.cpp"
SEVERAL = 2

NO_CODE = re.compile(r'//[^\n]*|"(?:[^"\\\n]|\\.)*"')
# As clang-format lays it out: the definition of a function or class begins a line, and so does the brace that ends it.
FUNCTION = re.compile(r"^(?!class|struct|namespace|using|static_assert|#)[\w:<>*&, ]*?\b(\w+)\((?:[^;{}]|\{\})*"
                      r"\{(?:\n(.*?)^\}|([^\n]*)\}$)", re.M | re.S)
CLASS = re.compile(r"^(?:class|struct) (\w+)[^;\n]* \{\n(.*?)^()\};", re.M | re.S)
EXPORTED = re.compile(r"^BRV_EXPORT [^;=]*?\b(\w+)\(", re.M)
OF_ITS_OWN = re.compile(r"^HOST_CALL_OF_ITS_OWN\((\w+),", re.M)
ROW = re.compile(r'\{"(\w+)",\s+"\w+",\s+\w+,')
HOST_CALL = re.compile(r"\bBX_\w+(?=\()|\bFORWARD_WITH_LOOKUP\b")
NAME = re.compile(r"\b\w+(?=\(|<\w+>\(| \w+\()")


def bodies(sources):
    """The code of each function and class; functions of one name have several."""
    found = {}
    for text in sources:
        for pattern in (FUNCTION, CLASS):
            for name, long_body, short_body in pattern.findall(text):
                found.setdefault(name, []).append(long_body or short_body)
    return found


def host_calls(name, found, above=()):
    """How many a function can make, SEVERAL at most."""
    if name not in found or name in above:
        return 0

    def of(body):
        inner = [other for other in NAME.findall(body) if not other.startswith("BX_")]
        count = len(HOST_CALL.findall(body)) + sum(host_calls(other, found, (*above, name)) for other in inner)
        return SEVERAL if count and re.search(r"\b(?:for|while) \(", body) else min(count, SEVERAL)
    return max(map(of, found[name]))


def main(root):
    sources = {path: NO_CODE.sub("", text) for path, text in texts(root, r".*\.(h|cpp|inc)", FOLDERS).items()}
    exported = {name for path, text in sources.items() if path.endswith(".h") for name in EXPORTED.findall(text)
                if not name.startswith("Ext_")}
    exported |= {name for text in sources.values() for name in OF_ITS_OWN.findall(text)}
    found = bodies(text for path, text in sources.items() if path.endswith((".h", ".cpp")))
    several = {name for name in exported if host_calls(name, found) >= SEVERAL}
    tested = set(ROW.findall((Path(root) / ROWS).read_text(encoding="utf-8")))
    slips = [f"{name} can make several host calls: {ROWS} needs a row for it" for name in sorted(several - tested)]
    slips += [f"{name} makes no two host calls: {ROWS} needs no row for it" for name in sorted(tested - several)]
    slips += [] if several else ["no function with several host calls was found"]
    print("\n".join(slips) or f"{len(several)} functions: {', '.join(sorted(several))}")
    return 1 if slips else 0


sys.exit(main(sys.argv[1]))
