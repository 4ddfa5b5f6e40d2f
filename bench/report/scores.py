"""Scores to measure with: a quartet, and larger ones made of it by stacking its parts."""

import pathlib
import re
import xml.etree.ElementTree as ElementTree
import zipfile


def largest_quartet(folder):
    """The largest compressed score in a folder, or None."""
    return max(pathlib.Path(folder).glob("*.mxl"), key=lambda path: path.stat().st_size, default=None)


def unpacked(path):
    if path.suffix != ".mxl":
        return path.read_text("utf-8")
    with zipfile.ZipFile(path) as archive:
        container = ElementTree.fromstring(archive.read("META-INF/container.xml"))
        return archive.read(next(container.iter("rootfile")).get("full-path")).decode("utf-8")


def stacked(text, size, target):
    """Writes a score of at most `size` bytes, or of one copy: the parts of `text`, over and over, under new names."""
    start, end = text.index("<part id="), text.rindex("</score-partwise>")
    head, parts, tail = text[:start], text[start:end], text[end:]
    with open(target, "w", encoding="utf-8", newline="") as file:
        file.write(head)
        for number in range(max(1, size // len(parts.encode()))):
            file.write(re.sub(r'<part id="([^"]*)"', rf'<part id="\g<1>x{number}"', parts))
        file.write(tail)
