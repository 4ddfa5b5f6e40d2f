"""What the generated pages are written in: the comments of Doxygen, with tables in HTML."""

from comments import escaped


def page(name, title, *parts):
    return "/**\n" + "\n".join((f"@page {name} {title}", *parts)) + "\n*/\n"


def table(headings, rows):
    """Cells are in Doxygen's words."""
    lines = ["<table>", "<tr>" + "".join(f"<th>{heading}</th>" for heading in headings) + "</tr>"]
    lines += ["<tr>" + "".join(f"<td>{cell}</td>" for cell in row) + "</tr>" for row in rows]
    return "\n".join([*lines, "</table>"])


def reference(symbol, text=None):
    return f'@ref {symbol} "{text or symbol}"'


def code(text):
    return f"<code>{escaped(text)}</code>"
