"""Scores to measure with: a quartet, and larger ones made of it by stacking its parts."""

import itertools
import pathlib
import re
import xml.etree.ElementTree as ElementTree
import zipfile


def largest_quartet(folder):
    """The largest compressed score in a folder, or None."""
    return max(pathlib.Path(folder).glob("*.mxl"), key=lambda path: path.stat().st_size, default=None)


def small_scores(folder, samples):
    """Plain small scores that are sound; where the folder has none, the samples."""
    return sorted(pathlib.Path(folder).glob("*.xml")) or sorted(pathlib.Path(samples).glob("*.musicxml"))


def copies(originals, count, folder):
    """Fills a folder with so many copies, the originals in turn; their paths."""
    folder.mkdir(parents=True, exist_ok=True)
    texts = [path.read_bytes() for path in originals]
    paths = [folder / f"{number:05}.musicxml" for number in range(count)]
    for number, path in enumerate(paths):
        path.write_bytes(texts[number % len(texts)])
    return [str(path) for path in paths]


def unpacked(path):
    if path.suffix != ".mxl":
        return path.read_text("utf-8")
    with zipfile.ZipFile(path) as archive:
        container = ElementTree.fromstring(archive.read("META-INF/container.xml"))
        return archive.read(next(container.iter("rootfile")).get("full-path")).decode("utf-8")


def stacked(text, size, target):
    """Writes a score of nearly `size` bytes: `text`, followed by the same parts again under new names."""
    start, end = text.index("<part id="), text.rindex("</score-partwise>")
    head, body, tail = text[:start], text[start:end], text[end:]
    parts = [part.encode() for part in re.split(r"(?=<part id=)", body) if part]
    written = len(text.encode())
    with open(target, "wb") as file:
        file.write(head.encode() + body.encode())
        for number in itertools.count(1):
            part = parts[number % len(parts)]
            written += len(part)
            if written > size:
                break
            file.write(re.sub(rb'<part id="([^"]*)"', rb'<part id="\g<1>x%d"' % number, part, count=1))
        file.write(tail.encode())
