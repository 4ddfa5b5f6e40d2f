"""Hides the ledger lines of every note with the standard library: hide_etree.py SCORE RESULT."""

import sys
import xml.etree.ElementTree as ElementTree

tree = ElementTree.parse(sys.argv[1])
for note in tree.iter("note"):
    note.set("print-leger", "no")
tree.write(sys.argv[2], xml_declaration=True, encoding="UTF-8")
