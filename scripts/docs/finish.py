"""What is left to do when Doxygen has written its pages."""

import re
import shutil
from urllib.parse import unquote, urldefrag

import search

THEME_FILES = ["site.css", "search.js"]


def reached(folder):
    """The pages that the start leads to, by the names of their files, and all files that these name."""
    pages, files, waiting = {}, set(), ["index.html"]
    while waiting:
        name = waiting.pop()
        if name in files or not (folder / name).is_file():
            continue
        files.add(name)
        if name.endswith(".html"):
            pages[name] = search.read(folder / name)
            waiting += [unquote(urldefrag(link).url) for link in pages[name].links]
    return pages, files


def without_summary(path):
    """Takes away the links at the top of a page, some of which lead to lists of private types, which are not there."""
    text = path.read_text(encoding="utf-8")
    path.write_text(re.sub(r'<div class="summary">.*?</div>', "", text, flags=re.S), encoding="utf-8")


def finish(folder, theme):
    """Adds the theme and the index, and removes what no page leads to."""
    for name in THEME_FILES:
        shutil.copy(theme / name, folder)
    pages, files = reached(folder)
    for path in folder.iterdir():
        if path.name not in files:
            path.unlink()
    for name in pages:
        without_summary(folder / name)
    search.write_index(folder, pages)
