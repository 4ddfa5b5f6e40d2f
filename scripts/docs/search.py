"""The index of the search."""

import json
from html.parser import HTMLParser

INDEX = "searchindex.js"
PAGE_TITLES, HEADINGS = {"title"}, {"h1", "h2", "h3", "h4"}
# What only leads to the rest of a page, or repeats it.
LEFT_OUT = {"top", "header", "groupheader", "memberdecls", "permalink"}
# Their ends are ends of words.
BLOCKS = {"p", "li", "td", "th", "tr", "div", "dt", "dd", "pre"}


class Page(HTMLParser):
    """The places of a page: [title, page, link, text] from each heading, or symbol, to the next; and what it links to."""

    def __init__(self, name):
        super().__init__()
        self._name = name
        self._anchor, self._page, self._heading = "", "", None
        self._skipped = []
        self.places, self.links = [], set()

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.links.update(attributes[name] for name in ("href", "src", "data") if attributes.get(name))
        is_left_out = LEFT_OUT.intersection([*(attributes.get("class") or "").split(), attributes.get("id")])
        if self._skipped or is_left_out:
            self._skipped.append(tag)
        elif tag in HEADINGS | PAGE_TITLES:
            self._heading = (tag, [])
        anchor = attributes.get("id") or (attributes.get("name") if tag == "a" else None)
        if anchor:
            self._anchor = anchor

    def handle_endtag(self, tag):
        if self._skipped:
            if tag in self._skipped:
                while self._skipped.pop() != tag:
                    pass
        elif self._heading and tag == self._heading[0]:
            self._end_heading(tag, " ".join("".join(self._heading[1]).split()))
            self._heading = None
        elif tag in BLOCKS and self.places:
            self.places[-1][3].append(" ")

    def _end_heading(self, tag, title):
        if tag in PAGE_TITLES:
            self._page = title.rpartition(" – ")[0].removesuffix(" File Reference")
            self.places.append([self._page, self._page, self._name, []])
        elif title and title != self._page:
            self.places.append([title, self._page, f"{self._name}#{self._anchor}", []])

    def handle_data(self, data):
        if self._skipped:
            return
        if self._heading:
            self._heading[1].append(data)
        elif self.places:
            self.places[-1][3].append(data)


def read(path):
    page = Page(path.name)
    page.feed(path.read_text(encoding="utf-8"))
    for place in page.places:
        place[3] = " ".join("".join(place[3]).split())
    return page


def write_index(folder, pages):
    """pages: what was read, by the names of their files. What only lists a header is left out."""
    places = [place for name, page in sorted(pages.items()) if not name.endswith("_source.html") for place in page.places]
    text = json.dumps(places, ensure_ascii=False, separators=(",", ":"))
    (folder / INDEX).write_text(f"const searchIndex = {text};\n", encoding="utf-8")
