"""The page of the records with the offsets of their members, which the compiler gives."""

import re
import subprocess

from comments import escaped
from markup import code, page, reference, table

INTRODUCTION = """
Records cross the interface by pointer, in the byte order of the machine. Offsets and sizes are in bytes, on a processor of
64 bits. Members whose names begin with *host* belong to the host: leave them alone.
"""
PROGRAM = """
#include <cstddef>
#include <cstdio>
%s
int main() {
%s
}
"""
# The layout of a record is part of the interface where its header asserts its size.
HELD = re.compile(r"static_assert\(sizeof\((\w+)\) ==")


def layouts(records, headers, compiler):
    """The size of each record by its name, and the offset and the size of each member by both names."""
    lines = [f'  std::printf("{record.name} 0 %zu\\n", sizeof({record.name}));' for record in records]
    lines += [f'  std::printf("{record.name}::{member.name} %zu %zu\\n", offsetof({record.name}, {member.name}), '
              f"sizeof({record.name}::{member.name}));" for record in records for member in record.members]
    includes = "\n".join(f'#include "{header}"' for header in headers)
    source = headers[0].parent / "layouts.cpp"
    source.write_text(PROGRAM % (includes, "\n".join(lines)), encoding="utf-8")
    program = source.with_suffix("")
    subprocess.run([*compiler, source, "-o", program], check=True)
    printed = subprocess.run([program], check=True, capture_output=True, text=True).stdout
    return {name: (int(offset), int(size)) for name, offset, size in map(str.split, printed.splitlines())}


def section(record, layout):
    rows = []
    for member in record.members:
        offset, size = layout[f"{record.name}::{member.name}"]
        rows.append((offset, size, reference(f"{record.name}::{member.name}", member.name), code(member.type),
                     escaped(member.brief)))
    return f"""@section record_{record.name} {record.name}
{escaped(record.brief)} It has {layout[record.name][1]} bytes; {reference(record.name)} is its declaration.

{table(("Offset", "Size", "Member", "Type", "Meaning"), rows)}
"""


def records_page(symbols, headers, compiler):
    defining = [header for header in headers if HELD.search(header.read_text(encoding="utf-8"))]
    records = [symbols.records[name] for header in defining for name in HELD.findall(header.read_text(encoding="utf-8"))]
    layout = layouts(records, defining, compiler)
    links = [f"/** @struct {record.name}\n\nThe {reference('record_' + record.name, 'table of its offsets')} is among those of "
             "all records. */\n" for record in records]
    return page("records", "Records and their offsets", INTRODUCTION,
                *(section(record, layout) for record in records)) + "".join(links)
