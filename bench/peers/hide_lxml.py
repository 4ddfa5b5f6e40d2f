"""Hides the ledger lines of every note with lxml: hide_lxml.py SCORE RESULT, plain or compressed."""

import sys
import zipfile

from lxml import etree

PARSER = etree.XMLParser(huge_tree=True, load_dtd=False, no_network=True)


def hide(tree):
    for note in tree.iter("note"):
        note.set("print-leger", "no")


def hide_plain(source, target):
    tree = etree.parse(source, PARSER)
    hide(tree)
    tree.write(target, xml_declaration=True, encoding="UTF-8")


def hide_compressed(source, target):
    with zipfile.ZipFile(source) as before, zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as after:
        root_file = next(etree.fromstring(before.read("META-INF/container.xml")).iter("rootfile")).get("full-path")
        for name in before.namelist():
            content = before.read(name)
            if name == root_file:
                tree = etree.ElementTree(etree.fromstring(content, PARSER))
                hide(tree)
                content = etree.tostring(tree, xml_declaration=True, encoding="UTF-8")
            after.writestr(name, content)


if __name__ == "__main__":
    (hide_compressed if sys.argv[1].endswith(".mxl") else hide_plain)(sys.argv[1], sys.argv[2])
