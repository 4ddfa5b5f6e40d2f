"""The files of the tree, without what is built."""

from pathlib import Path

LEFT_OUT = {"build", "dist"}


def files(root, suffixes, folders=None):
    """The files with these suffixes in some folders of the tree, else in all of them, by their paths from the root."""
    tops = [Path(root) / folder for folder in folders] if folders else sorted(Path(root).iterdir())
    found = {}
    for top in tops:
        if top.name in LEFT_OUT or top.name.startswith("."):
            continue
        for path in [top] if top.is_file() else sorted(top.rglob("*")):
            inside = path.relative_to(root)
            if path.suffix in suffixes and path.is_file() and not LEFT_OUT & set(inside.parts):
                found[str(inside)] = path.read_text(encoding="utf-8")
    return found
