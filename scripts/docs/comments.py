"""The comments of a header as Doxygen reads them. Its input filter: line N of what comes out is line N of the header.

    comments.py HEADER    prints the header with documentation comments

Headers are written for those who read them, with plain comments. The comment at the top is about the file. One right above
a declaration is about this one, and its first paragraph about those that follow without a blank line and a comment of their
own. One at the end of a line is about what that line declares. Indented lines are C++ after "Example:", else a table.
"""

import re
import sys
from pathlib import Path

COMMENT = re.compile(r"(\s*)//(?: (.*))?$")
TRAILING = re.compile(r"(\s*[^\s}].*[;,])(\s+)// (.*)$")
HEADING = re.compile(r"(.+?) -{5,}$")
DECLARES_NOTHING = re.compile(r"\s*(?:[})]|#(?!define)|static_assert|extern \"C\" \{|public:|private:|class \w+;|friend |$)")
# What speaks for itself.
UNDERSTOOD = [(re.compile(r"\s+std::\w+ host[A-Z]\w*(?:\[\d+\])?;$"), "Belongs to the host."),
              (re.compile(r"\s+.*\(const (\w+)&\) = delete;$"), "There are no copies.")]
CODE_SPAN = re.compile(r"(`[^`]*`)")
HOST_DEFAULT = re.compile(r"\[default (-?\d+)\]$")
# What Doxygen would take for a command, a tag, emphasis, a link or an entity.
SPECIAL = re.compile(r"[\\@<>#*$&]|%(?=\w)")
# Names of functions and constants, each of which becomes a link.
NAME = re.compile(r"\b(?:BX_|BXUtil|bx_|BrevixExtension|k[A-Z])\w+\b(?!\.\.\.|\()|"
                  r"\b(?:LoadedTGFCounter|\w+EditDepth|CanAddNoteRecordToRests)\b")


def escaped(text):
    """Text that Doxygen shows as it is; code in backticks it does anyway."""
    parts = CODE_SPAN.split(text)
    parts[::2] = [SPECIAL.sub(lambda found: "\\" + found[0], part) for part in parts[::2]]
    return "".join(parts)


def linked(text):
    parts = CODE_SPAN.split(escaped(text))
    parts[::2] = [NAME.sub(lambda found: "#" + found[0], part) for part in parts[::2]]
    return "".join(parts)


def family_id(title):
    """The name of the group of the host calls under a heading."""
    return "calls_" + re.sub(r"\W+", "_", title.lower())


def blocks(lines):
    """The comments that fill their lines, each as the index of its first line, its indentation and its lines of text."""
    start = 0
    while start < len(lines):
        first = COMMENT.match(lines[start])
        text = []
        for line in lines[start:] if first else []:
            found = COMMENT.match(line)
            if not found or found[1] != first[1]:
                break
            text.append(found[2] or "")
        if text:
            yield start, first[1], text
        start += len(text) or 1


def indented_runs(text):
    """The indented lines of a comment, but for those of list items: each run as its first and last index, and whether it is
    C++."""
    index, is_item = 0, False
    while index < len(text):
        is_indented = text[index].startswith("  ")
        is_item = text[index].startswith("- ") or (is_item and is_indented)
        last = index
        if is_indented and not is_item:
            above = text[index - 1] or text[index - 2]
            for later in range(index, len(text)):
                if text[later].startswith("  "):
                    last = later
                elif text[later]:
                    break
            yield index, last, above.startswith("Example:")
        index = last + 1


def examples(header):
    """The C++ in the comments of a header, each with the number of its first line."""
    for start, _, text in blocks(Path(header).read_text(encoding="utf-8").splitlines()):
        for first, last, is_code in indented_runs(text):
            if is_code:
                yield start + first + 1, "\n".join(line[2:] for line in text[first:last + 1]) + "\n"


def in_doxygens_words(text):
    lines = [HOST_DEFAULT.sub(r"@hostdefault{\1}", linked(line)) for line in text]
    for first, last, is_code in indented_runs(text):
        lines[first:last + 1] = text[first:last + 1]
        lines[first - 1] = f"{lines[first - 1]} {'@code{.cpp}' if is_code else '@verbatim'}".lstrip()
        lines[last] += " @endcode" if is_code else " @endverbatim"
    return lines


def understood(line):
    """What is to be said of a declaration that needs no comment, or nothing."""
    return next((text for pattern, text in UNDERSTOOD if pattern.match(line)), None)


def first_paragraph(text):
    return linked(" ".join(text[:text.index("")] if "" in text else text))


class Filter:
    def __init__(self, text):
        self._lines = text.splitlines()
        self._out = list(self._lines)
        self._group = ""

    def result(self):
        for start, indent, text in blocks(self._lines):
            self._block(start, indent, text)
        for index, line in enumerate(self._lines):
            self._end_of_line(index, line)
        return "\n".join(self._out) + "\n"

    def _block(self, start, indent, text):
        after = start + len(text)
        if heading := HEADING.match(text[0]):
            self._group = f" @ingroup {family_id(heading[1])}"
            return
        lines = in_doxygens_words(text)
        if start == 0:
            lines[0] = "@wholefile " + lines[0]
        elif after == len(self._lines) or DECLARES_NOTHING.match(self._lines[after]) or self._is_private(start):
            return
        else:
            lines[-1] += self._group
            self._share(after, first_paragraph(text))
        self._out[start:after] = [f"{indent}/// {line}".rstrip() for line in lines]

    def _is_private(self, index):
        for line in reversed(self._lines[:index]):
            if re.match(r" *(private:|public:|(?:class|struct)\b.*\{|\};)", line):
                return line.endswith("private:")
        return False

    def _share(self, index, paragraph):
        """Gives the declarations that follow the one at an index what the comment of that says."""
        index = self._end_of(index) + 1
        while index < len(self._lines):
            line = self._lines[index]
            if DECLARES_NOTHING.match(line) or COMMENT.match(line):
                return
            if not TRAILING.match(line) and not understood(line):
                indent = re.match(" *", line)[0]
                self._out[index] = f"{indent}/** {paragraph} */ {line.lstrip()}"
            index = self._end_of(index) + 1

    def _end_of(self, index):
        """The last line of the declaration that begins at an index."""
        depth = 0
        for last in range(index, len(self._lines)):
            code = self._lines[last].split("//")[0].rstrip()
            depth += code.count("{") - code.count("}")
            if depth <= 0 and (code.endswith((";", "}")) or code.startswith("#")):
                return last
        return len(self._lines)

    def _end_of_line(self, index, line):
        if line.lstrip().startswith("friend "):
            # It is declared elsewhere, and its place in a class has no documentation to lead to.
            self._out[index] = ""
        elif found := TRAILING.match(line):
            if not COMMENT.match(line):
                self._out[index] = f"{found[1]}{found[2]}///< {linked(found[3])}"
        elif text := understood(line):
            self._out[index] = f"{line}  ///< {text}"


if __name__ == "__main__":
    sys.stdout.write(Filter(Path(sys.argv[1]).read_text(encoding="utf-8")).result())
