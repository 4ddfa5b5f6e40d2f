"""Holds the includes of a tree to the floors that its docs/architecture.md lists.

    layout.py FOLDER    prints what is wrong in the tree in that folder, a line each; exit status 1 if anything is
"""

import pathlib
import re
import sys

from floors import DOCUMENT, HOST, Document
from sourcetree import SourceTree, without_template

PRODUCT = ("extension/", "util/", "LIB/", "BrvEDK/Source/")


def upward(includes, floors):
    """Includes of files that do not stand on a floor below; what is made from a template includes nothing and is below all."""
    for include in includes:
        source, target = floors.folder_of(include.file), floors.folder_of(include.target)
        if source in (None, target) or target is None or include.target != without_template(include.target):
            continue
        if floors.heights[target] >= floors.heights[source]:
            yield f"{include.file}:{include.line}: includes {include.name}, but {target or 'the tree itself'} is not below {source}"


def past_the_interface(includes, interface):
    """Includes by the host of headers of the product that are not of the interface between the two."""
    for include in includes:
        if include.file.startswith(HOST) and include.target.startswith(PRODUCT):
            if pathlib.PurePosixPath(include.target).name not in interface:
                yield f"{include.file}:{include.line}: includes {include.name}, which is not of the interface"


def not_in_step(tree, floors):
    """Folders with sources that the list of floors lacks, and listed folders that have none."""
    inside = [file for file in tree.files if file.startswith(floors.inside)]
    for file in inside:
        rest = file.removeprefix(floors.inside)
        if "/" in rest and floors.folder_of(file) == floors.inside:
            yield f"{file}:1: stands in {floors.inside}{rest.split('/')[0]}/, which is on no floor"
    for folder in floors.listed:
        if not any(file.startswith(folder) for file in inside):
            yield f"{DOCUMENT}:1: lists {folder}, where no sources are"


def circles(tree):
    """Files that include themselves by way of others: each circle once, where it closes."""
    done, path = set(), []

    def visit(file):
        path.append(file)
        for include in tree.includes[file]:
            if include.target in path:
                circle = [*path[path.index(include.target):], include.target]
                yield f"{file}:{include.line}: closes a circle: {' -> '.join(circle)}"
            elif include.target and include.target not in done:
                yield from visit(include.target)
        done.add(path.pop())

    for file in tree.files:
        if file not in done:
            yield from visit(file)


def own_header_not_first(tree):
    """Bodies of a header in their folder that include another one before it."""
    for file in tree.files:
        header = re.sub(r"(_linux|_mac)?\.cpp$", ".h", file)
        if header == file or header not in tree.includes:
            continue
        included = tree.includes[file]
        if not included or included[0].target != header:
            yield f"{file}:{included[0].line if included else 1}: does not include {header} before all others"


def problems(root):
    tree = SourceTree(root)
    document = Document((tree.root / DOCUMENT).read_text())
    ours = [include for file in tree.files for include in tree.includes[file] if include.target]
    found = [*tree.problems, *past_the_interface(ours, document.interface), *circles(tree), *own_header_not_first(tree)]
    for floors in document.floors:
        found += [*not_in_step(tree, floors), *upward(ours, floors)]
    return sorted(found)


if __name__ == "__main__":
    wrong = problems(sys.argv[1])
    print("\n".join(wrong))
    sys.exit(1 if wrong else 0)
