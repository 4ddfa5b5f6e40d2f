"""An independent reader of MusicXML: what is where, from the XML alone, with exact fractions."""

import fractions
import functools
import itertools
import re
import xml.etree.ElementTree as ElementTree
import zipfile

MAX_NOTES = 12


def document(path):
    """The bytes of the score in a plain or compressed file."""
    if not zipfile.is_zipfile(path):
        with open(path, "rb") as file:
            return file.read()
    with zipfile.ZipFile(path) as archive:
        container = ElementTree.fromstring(archive.read("META-INF/container.xml"))
        return archive.read(next(container.iter("rootfile")).get("full-path"))


class Entry:
    __slots__ = "staff", "measure", "voice", "position", "notes"

    def __init__(self, staff, measure, voice, position):
        self.staff, self.measure, self.voice, self.position = staff, measure, voice, position
        self.notes = []

    def is_hidden(self):
        return all(map(has_no, self.notes))


def start_tags(content):
    """The attributes of every note, in the order of the document, without parsing it whole."""
    return [dict(re.findall(r'([-\w]+)\s*=\s*["\']([^"\']*)', tag))
            for tag in re.findall(r"<note(\s[^>]*|)/?>", content.decode("utf-8"))]


def has_no(note):
    return note.get("print-leger") == "no"


# A score has few different values.
exact = functools.lru_cache(maxsize=None)(fractions.Fraction)


def number(element, name, otherwise):
    text = element.findtext(name)
    return exact(text.strip()) if text else otherwise


@functools.lru_cache(maxsize=None)
def quarters(duration, divisions):
    return duration / divisions


def parts(root):
    """Lists of measures, part by part."""
    if root.tag == "score-partwise":
        return [part.findall("measure") for part in root.findall("part")]
    found = {}
    for measure in root.findall("measure"):
        for part in measure.findall("part"):
            found.setdefault(part.get("id"), []).append(part)
    return list(found.values())


def read_part(measures, staves_before):
    """The entries of a part, the number of its staves, and how far its clock gets in each measure."""
    entries = []
    lengths = []
    staves = 1
    divisions = fractions.Fraction(1)
    for measure_number, measure in enumerate(measures, 1):
        clock = length = fractions.Fraction(0)
        chord = {}
        root = None
        for child in measure:
            if child.tag == "attributes":
                divisions = number(child, "divisions", divisions)
                staves = max(staves, int(child.findtext("staves") or 1))
            elif child.tag in ("backup", "forward"):
                duration = quarters(number(child, "duration", 0), divisions)
                clock = clock + duration if child.tag == "forward" else max(clock - duration, 0)
            elif child.tag == "note":
                staff = int(child.findtext("staff") or 1)
                staves = max(staves, staff)
                if child.find("chord") is None:
                    chord = {}
                    root = (clock, (child.findtext("voice") or "1").strip())
                    clock += quarters(number(child, "duration", 0), divisions)
                entry = chord.get(staff)
                if entry is None or len(entry.notes) == MAX_NOTES:
                    entry = chord[staff] = Entry(staves_before + staff, measure_number, root[1], root[0])
                    entries.append(entry)
                entry.notes.append(child)
            if clock > length:
                length = clock
        lengths.append(length)
    return entries, staves, lengths


class Reading:
    """All entries of a score, the number of staves of each part, and how far the clock of any part gets in each measure."""

    def __init__(self, root):
        self.entries = []
        self.staves = []
        lengths = []
        for measures in parts(root):
            entries, staves, of_part = read_part(measures, sum(self.staves))
            self.entries += entries
            self.staves.append(staves)
            lengths.append(of_part)
        self.lengths = list(map(max, itertools.zip_longest(*lengths, fillvalue=fractions.Fraction(0))))
