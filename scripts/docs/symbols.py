"""What Doxygen has found in the headers, read from its XML."""

import xml.etree.ElementTree as ET
from collections import namedtuple
from pathlib import Path

Header = namedtuple("Header", "name page brief")
Record = namedtuple("Record", "name brief members")
Member = namedtuple("Member", "name type brief")
Function = namedtuple("Function", "name result parameters")  # each parameter is a pair of its type and its name


def text_of(element):
    return " ".join("".join(element.itertext()).split()) if element is not None else ""


def brief_of(definition):
    return text_of(definition.find("briefdescription"))


class Symbols:
    def __init__(self, folder):
        self.headers, self.records, self.functions = {}, {}, {}
        self.names = set()  # of all that a header declares for itself
        for file in sorted(Path(folder).glob("*.xml")):
            for compound in ET.parse(file).getroot().iter("compounddef"):
                self._add(compound)

    def _add(self, compound):
        name = text_of(compound.find("compoundname"))
        if compound.get("kind") == "file" and not name.endswith(".dox"):
            self.headers[name] = Header(name, f"{compound.get('id')}.html", brief_of(compound))
        elif compound.get("kind") == "struct":
            members = [Member(text_of(member.find("name")),
                              text_of(member.find("type")) + text_of(member.find("argsstring")), brief_of(member))
                       for member in compound.iter("memberdef")
                       if member.get("kind") == "variable" and member.get("static") == "no"]
            self.records[name] = Record(name, brief_of(compound), members)
        if compound.get("kind") in ("struct", "class"):
            self.names.add(name)
        for member in compound.iter("memberdef") if compound.get("kind") == "file" else []:
            self.names.add(text_of(member.find("name")))
            if member.get("kind") == "function":
                self._add_function(member)

    def _add_function(self, member):
        parameters = [(text_of(parameter.find("type")), text_of(parameter.find("declname")))
                      for parameter in member.iter("param")]
        name = text_of(member.find("name"))
        self.functions[name] = Function(name, text_of(member.find("type")), parameters)
