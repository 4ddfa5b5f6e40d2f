"""Holds the documents together: docs/README.md lists each page once, links lead to files and headings that are there, and
what the forge runs are scripts of the tree.

    documents_test.py ROOT
"""

import re
import sys
from collections import Counter
from pathlib import Path

LINK = re.compile(r"\]\(([^)\s]+)\)")
BLOCK = re.compile(r"^```.*?^```$", re.MULTILINE | re.DOTALL)
CODE = re.compile(r"`[^`\n]*`")
COMMAND = re.compile(r"^ *- run: (.*)$", re.MULTILINE)
# A container has no git until it is installed; the other scripts are named in a list.
INSTALL_GIT = "apt-get update && apt-get install -y --no-install-recommends ca-certificates git"


def documents(root):
    return [*sorted(root.glob("*.md")), *sorted(root.glob("docs/*.md"))]


def anchors(text):
    """As forges make them of headings."""
    headings = re.findall(r"^#+ (.*)$", BLOCK.sub("", text), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def broken(path):
    """The links of a page that lead nowhere."""
    for link in LINK.findall(CODE.sub("", BLOCK.sub("", path.read_text()))):
        target, _, anchor = link.partition("#")
        if re.match(r"\w+:", target):
            continue
        file = path.parent / target if target else path
        if not file.exists():
            yield f"{path}: {link}: there is no such file"
        elif anchor and file.suffix == ".md" and anchor not in anchors(file.read_text()):
            yield f"{path}: {link}: there is no such heading"


def unlisted(root):
    listed = Counter(LINK.findall((root / "docs/README.md").read_text()))
    for page in sorted((root / "docs").iterdir()):
        if page.suffix in (".md", ".txt") and page.name != "README.md" and listed[page.name] != 1:
            yield f"docs/README.md: lists {page.name} {listed[page.name]} times"


def foreign(workflow, root):
    """The commands of a workflow that are no script."""
    text = workflow.read_text()
    commands = COMMAND.findall(text)
    scripts = re.findall(r"scripts/[\w-]+\.sh", text)
    for command in commands:
        if command not in (INSTALL_GIT, "${{ matrix.script }}") and not re.match(r"scripts/[\w-]+\.sh", command):
            yield f"{workflow}: {command}: is no script"
    for script in scripts:
        if not (root / script).exists():
            yield f"{workflow}: {script}: there is no such script"
    if not scripts:
        yield f"{workflow}: runs nothing"


def main(root):
    pages = documents(root)
    slips = [slip for page in pages for slip in broken(page)]
    slips += unlisted(root)
    workflows = sorted(root.glob(".github/workflows/*.yml"))
    slips += [slip for workflow in workflows for slip in foreign(workflow, root)]
    if len(pages) < 10 or not workflows:
        slips.append("no documents or no workflows were found")
    print("\n".join(slips) or f"{len(pages)} documents, {len(workflows)} workflows")
    return 1 if slips else 0


sys.exit(main(Path(sys.argv[1])))
