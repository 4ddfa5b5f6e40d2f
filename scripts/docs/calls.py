"""The pages of the calls to the host, by family, from the call table and the prototypes."""

import json
import subprocess

from comments import family_id
from markup import code, page, reference, table

INTRODUCTION = """
All {count} calls that an extension can make, in their families. The class of an argument or a result says which of its bits
count: @ref short16 "short16" and @ref ushort16 "ushort16" are 16 bits with and without a sign, @ref flag8 "flag8" is 8 bits,
@ref int32 "int32" and @ref uint32 "uint32" are 32, and @ref HostResult "HostResult" is all 64. The last argument of every
call, the version, is left out here. The default is the result if the host lacks the function.
"""
# The table as JSON, by the preprocessor. Functions with a definition of their own return 0 by default.
TABLE = """
#define HOST_GROUP(title) {{"family": title}},
#define HOST_CALL(name, defaultResult, ...) {{"name": #name, "default": defaultResult}},
#define HOST_CALL_AFTER(work, ...) HOST_CALL(__VA_ARGS__)
#define HOST_CALL_IF(condition, otherwise, ...) HOST_CALL(__VA_ARGS__)
#define HOST_CALL_OF_ITS_OWN(name, ...) HOST_CALL(name, 0)
#include "{table}"
"""


def families(call_table, compiler):
    """Pairs of a title and the calls of that family, which are pairs of a name and a default."""
    text = subprocess.run([*compiler, "-E", "-P", "-x", "c++", "-"], input=TABLE.format(table=call_table), check=True,
                          capture_output=True, text=True).stdout
    found = []
    for row in json.loads(f"[{text.strip().rstrip(',')}]"):
        if "family" in row:
            found.append((row["family"], []))
        else:
            found[-1][1].append((row["name"], row["default"]))
    return found


def call_row(function, default):
    arguments = [f"{kind} {name}".replace(" *", "*") for kind, name in function.parameters[:-1]]
    is_void = function.result == "void"
    return (reference(function.name), "<br>".join(map(code, arguments)), "" if is_void else code(function.result),
            "" if is_void else default)


def calls_pages(symbols, call_table, compiler):
    found = families(call_table, compiler)
    sections, groups = [], []
    for title, calls in found:
        group = family_id(title)
        groups.append(f"/** @defgroup {group} {title}\n\n{reference('table_' + group, 'Their arguments, results and defaults')} "
                      "in a table. */\n")
        rows = [call_row(symbols.functions[name], default) for name, default in calls]
        sections.append(f"@section table_{group} {title}\n{reference(group, 'Their contracts')}.\n\n"
                        + table(("Function", "Arguments", "Result", "Default"), rows) + "\n")
    introduction = INTRODUCTION.format(count=sum(len(calls) for _, calls in found))
    return page("calls", "Calls to the host, by family", introduction, *sections) + "".join(groups)
