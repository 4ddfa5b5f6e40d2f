"""Holds that the calls between host and extension are declared in two files and nowhere else. Definitions, which include
those files, and calls may be anywhere.

    signatures_test.py ROOT
"""

import re
import sys

from sources import texts

HOMES = {"BrvEDK/Source/hostprototypes.inc": "BX_", "BrvEDK/Source/convention.h": "BrevixExtension"}
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.S)
# A type, the name, arguments, and a semicolon instead of a body. Before the name of a call there is no type.
DECLARATION = re.compile(
    r'^[ \t]*(?:extern\s+"C"\s+)?(?:__attribute__\s*\(\(.*?\)\)\s*|\[\[.*?\]\]\s*)*'
    r"(?!return\b|throw\b|else\b|case\b|new\b|delete\b)(?:[A-Za-z_][\w:]*(?:\s*\*+\s*|\s+))+"
    r"((?:BX_|BrevixExtension|Ext_)\w+)\s*\((?:[^;{}()]|\([^()]*\))*\)[^;{}=,]*;", re.M)


def declared(text):
    return DECLARATION.findall(COMMENT.sub("", text))


def main(root):
    names = {path: declared(text) for path, text in texts(root, r".*\.(h|cpp|c|inc|md)").items()}
    slips = [f"{path} declares {name}" for path, found in names.items() if path not in HOMES for name in found]
    slips += [f"{path} declares no {prefix} function" for path, prefix in HOMES.items()
              if not any(name.startswith(prefix) for name in names[path])]
    slips += [f"{path} declares a function twice" for path, found in names.items() if len(found) != len(set(found))]
    print("\n".join(slips) or f"{sum(map(len, names.values()))} declarations")
    return 1 if slips else 0


sys.exit(main(sys.argv[1]))
