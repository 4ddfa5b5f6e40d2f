"""An independent reader of MusicXML: what is where, from the XML alone, with exact fractions."""

import fractions
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


def number(element, name, otherwise):
    text = element.findtext(name)
    return fractions.Fraction(text.strip()) if text else otherwise


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
                duration = number(child, "duration", 0) / divisions
                clock = max(clock + (duration if child.tag == "forward" else -duration), 0)
            elif child.tag == "note":
                staff = int(child.findtext("staff") or 1)
                staves = max(staves, staff)
                if child.find("chord") is None:
                    chord = {}
                    root = (clock, (child.findtext("voice") or "1").strip())
                    clock += number(child, "duration", 0) / divisions
                entry = chord.get(staff)
                if entry is None or len(entry.notes) == MAX_NOTES:
                    entry = chord[staff] = Entry(staves_before + staff, measure_number, root[1], root[0])
                    entries.append(entry)
                entry.notes.append(child)
            length = max(length, clock)
        lengths.append(length)
    return entries, staves, lengths


def read(root):
    """All entries of a score, and the number of its staves."""
    entries = []
    staves = 0
    for measures in parts(root):
        of_part, count, _ = read_part(measures, staves)
        entries += of_part
        staves += count
    return entries, staves


def measure_lengths(root):
    """How far the clock of any part gets in each measure, in quarters."""
    by_part = [read_part(measures, 0)[2] for measures in parts(root)]
    return [max(lengths) for lengths in itertools.zip_longest(*by_part, fillvalue=fractions.Fraction(0))]


def attributes_after_hiding(entries, is_selected):
    """What each note's attribute has to be once the ledger lines of selected entries are hidden, by note."""
    wanted = {}
    for entry in entries:
        changes = is_selected(entry) and not entry.is_hidden()
        for note in entry.notes:
            wanted[note] = "no" if changes else note.get("print-leger")
    return wanted
