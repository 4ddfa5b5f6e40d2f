"""The documents as pages of the site. They are written for a forge: their links lead to files of the tree. Here a link leads
to the page of the document or header, and for any other file to a page that shows it.
"""

import itertools
import os
import re
from pathlib import Path

FENCE = re.compile(r"```")
HEADING = re.compile(r"^(#+) +(.*?) *$")
LINK = re.compile(r"(!?)\[((?:`[^`]*`|[^\]`])*)\]\(([^)\s]+)\)")
CODE_SPAN = re.compile(r"`((?:[^`\n]|\n(?!\n))+)`")
BOLD = re.compile(r"\*\*(?=\S)((?:`[^`]*`|[^`*])+)\*\*")
# What Doxygen would take for a command, or drop, outside of code.
SPECIAL = re.compile(CODE_SPAN.pattern + r"|[@$\\]|%(?=\w)")
# What it would in <code>.
SPECIAL_IN_TAG = re.compile(r'--+|[@$\\%<>&"#*]')


class BadDocument(Exception):
    """What is wrong with a document, in a sentence."""


def anchor_of(heading):
    """The anchor that a forge gives a heading."""
    return re.sub(r"[^\w\- ]", "", heading.replace("`", "").lower()).replace(" ", "-")


def code_span(span, symbols):
    if span[1] in symbols:
        return f'@ref {span[1]} "{span[1]}"'
    # Doxygen takes tags for its own in the code of a table, a single quote for the end of a quotation, and drops "%" before a name.
    if not re.search(r"[<']|%(?=\w)", span[1]):
        return span[0]
    return "<code>" + SPECIAL_IN_TAG.sub(r"\\\g<0>", span[1]) + "</code>"


def linked_names(text, symbols):
    return CODE_SPAN.sub(lambda span: code_span(span, symbols), text)


def is_code(line):
    return line.startswith("    ")


class Document:
    """One document, by its path in the tree."""

    def __init__(self, root, path):
        self.path = path
        self.name = re.sub(r"\W", "-", str(path.with_suffix("")).lower())
        self._lines = (root / path).read_text(encoding="utf-8").splitlines()
        if not self._lines or not self._lines[0].startswith("# "):
            raise BadDocument(f"{path} does not begin with its title")

    @property
    def title(self):
        return HEADING.match(self._lines[0])[2].replace("`", "")

    @property
    def summary(self):
        """Its first sentence."""
        paragraphs = "\n".join(self._lines[1:]).strip("\n").split("\n\n")
        paragraph = next(text for text in paragraphs if not text.startswith(("    ", "```", "|"))).replace("\n", " ")
        return re.match(r".*?[.:](?= |$)|.*", LINK.sub(r"\2", paragraph))[0].rstrip(":.") + "."

    def as_page(self, target_of, symbols):
        """The page. target_of gives what a link leads to on the site, or None where nothing there can be its target. Names of
        symbols lead to them."""
        out = []
        for is_prose, lines in itertools.groupby(self._classified(), key=lambda pair: pair[0]):
            text = "\n".join(line for _, line in lines)
            out.append(self._linked(text, target_of, symbols) if is_prose else text)
        return "\n".join(out) + "\n"

    def _classified(self):
        """Pairs of whether a line is prose, and the line."""
        in_fence = False
        for number, line in enumerate(self._lines):
            if FENCE.match(line):
                in_fence = not in_fence
                # Doxygen highlights C++, and knows no shell.
                yield False, line if line == "```cpp" else "```"
            elif in_fence or is_code(line):
                yield False, line
            else:
                yield True, self._heading(number, line)

    def _heading(self, number, line):
        heading = HEADING.match(line)
        if not heading:
            return line
        # The title of a page is text alone.
        return (f"# {self.title} {{#{self.name}}}" if number == 0 else
                f"{line} {{#{self.name}-{anchor_of(heading[2])}}}")

    def _linked(self, prose, target_of, symbols):
        text = SPECIAL.sub(lambda found: found[0] if found[1] else "\\" + found[0], prose)
        # Doxygen knows no bold text that begins with code.
        text = BOLD.sub(r"<b>\1</b>", text)
        out, end = [], 0
        for link in LINK.finditer(text):
            out += [linked_names(text[end:link.start()], symbols), self._link(link, target_of)]
            end = link.end()
        return "".join([*out, linked_names(text[end:], symbols)])

    def _link(self, link, target_of):
        mark, text, target = link.groups()
        if re.match(r"\w+:", target):
            return link[0]
        path, _, anchor = target.partition("#")
        path = Path(os.path.normpath(self.path.parent / path)) if path else self.path
        try:
            found = target_of(path, anchor)
        except FileNotFoundError:
            raise BadDocument(f"{self.path} has a link to {target}, which is not there") from None
        return f"{mark}[{text}]({found})" if found else text


class Pages:
    """The documents in docs/, and the files of the tree that these lead to."""

    def __init__(self, root, headers, symbols):
        self._root = root
        self._headers = headers  # the pages of the headers, by their paths in the tree
        self._symbols = symbols  # the names of what they declare
        self.documents = {path.relative_to(root): None for path in sorted((root / "docs").glob("*.md"))}
        self._waiting = list(self.documents)
        self.images, self.sources = set(), set()

    def write(self, folder):
        while self._waiting:
            path = self._waiting.pop(0)
            self.documents[path] = Document(self._root, path)
            text = self.documents[path].as_page(self._target, self._symbols)
            (folder / f"{self.documents[path].name}.md").write_text(text, encoding="utf-8")
        for path in sorted(self.sources):
            text = f"/**\n@page {self._source_name(path)} {path}\n@include{{lineno}} {path}\n*/\n"
            (folder / f"{self._source_name(path)}.dox").write_text(text, encoding="utf-8")

    def _source_name(self, path):
        return "file-" + re.sub(r"\W", "-", str(path))

    def _target(self, path, anchor):
        if not (self._root / path).exists():
            raise FileNotFoundError(path)
        if path in self._headers:
            return self._headers[path]
        if path.suffix == ".md":
            if path not in self.documents:
                self.documents[path] = None
                self._waiting.append(path)
            name = Document(self._root, path).name
            return f"{name}.html#{name}-{anchor}" if anchor else f"{name}.html"
        if path.suffix in (".svg", ".png"):
            self.images.add(path)
            return path.name
        if (self._root / path).is_dir():
            return None
        self.sources.add(path)
        return self._source_name(path) + ".html"
