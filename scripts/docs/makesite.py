"""Makes the reference of the kit as a site.

    makesite.py FOLDER    a site that is there is replaced; exit status 1: Doxygen warns of something, or there is no new
                          site, as where a link of a document leads to no file; 2: the folder holds something else
"""

import errno
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path
from xml.etree import ElementTree

from calls import calls_pages
from finish import finish
from pages import BadDocument, Pages
from records import records_page
from search import INDEX
from symbols import Symbols

ROOT = Path(__file__).resolve().parents[2]
THEME = ROOT / "docs" / "site"


def kit_headers():
    """The headers that are installed, by their paths in the tree. Those that stand in for the system's are the system's."""
    kit = (ROOT / "cmake/BrvKit.cmake").read_text(encoding="utf-8")
    test_host = (ROOT / "testhost/CMakeLists.txt").read_text(encoding="utf-8")
    return [*map(Path, re.search(r"set\(BRV_KIT_HEADERS\s+([^)]*)\)", kit)[1].split()),
            *(Path("testhost", name) for name in re.search(r"set\(headers\s+([^)]*)\)", test_host)[1].split()),
            Path("platform/include/brvplatform.h")]


def version():
    return re.search(r"^project\(\w+ VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"), re.M)[1]


def installed(headers, folder):
    """Links to the headers, in folders as they are when they are installed."""
    for header in headers:
        inside = "platform" if header.parts[0] == "platform" else ""
        link = folder / "BrvEDK" / inside / header.name
        link.parent.mkdir(parents=True, exist_ok=True)
        link.symlink_to(ROOT / header)
    return sorted(folder.rglob("*.*"))


def doxygen(work, **settings):
    """Runs it with the settings, each a word, a path or a list of paths, and returns its warnings."""
    text = (THEME / "Doxyfile").read_text(encoding="utf-8")
    for name, value in settings.items():
        text += f"{name} = " + " ".join(f'"{word}"' for word in (value if isinstance(value, list) else [value])) + "\n"
    (work / "Doxyfile").write_text(text, encoding="utf-8")
    result = subprocess.run(["doxygen", work / "Doxyfile"], cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode != 0:
        sys.stderr.write(result.stdout)
        result.check_returncode()
    return result.stdout


def start_page(pages, symbols):
    headers = "\n".join(f"- [{name}]({header.page}): {header.brief}" for name, header in sorted(symbols.headers.items()))
    documents = "\n".join(f"- [{document.title}]({document.name}.html): {document.summary}"
                          for path, document in sorted(pages.documents.items(), key=lambda item: item[1].title.lower()))
    start = (THEME / "start.md").read_text(encoding="utf-8")
    return start.replace("%HEADERS%", headers).replace("%DOCUMENTS%", documents)


def replace(site, made):
    """Puts the pages into the folder of the site in place of those that are there, once there is a copy of all of them beside
    these. The folder itself stays: it may be where nothing can be removed."""
    new = site / ".docs-new"
    site.mkdir(parents=True, exist_ok=True)
    shutil.rmtree(new, ignore_errors=True)
    new.mkdir()
    try:
        for page in made.iterdir():
            shutil.copy(page, new)
        for old in contents(site):
            if old.is_dir() and not old.is_symlink():
                shutil.rmtree(old)
            else:
                old.unlink()
        for page in new.iterdir():
            page.rename(site / page.name)
    finally:
        shutil.rmtree(new)


def make(site, work):
    headers = kit_headers()
    include = installed(headers, work / "include")
    written = work / "pages"
    written.mkdir()
    inputs = [work / "include", written]
    common = {"INPUT": inputs, "STRIP_FROM_PATH": inputs, "STRIP_FROM_INC_PATH": work / "include", "PROJECT_NUMBER": version()}
    doxygen(work, **common, GENERATE_XML="YES", XML_OUTPUT=work / "xml", WARNINGS="NO")
    try:
        symbols = Symbols(work / "xml")
    except ElementTree.ParseError:
        # It does not notice that a disk is full.
        raise OSError(errno.EIO, "doxygen left files that cannot be read; the disk may be full", str(work)) from None

    compiler = [*shlex.split(os.environ.get("CXX", "c++")), "-std=c++20", f"-I{work}/include", f"-I{ROOT}/platform/include"]
    pages = Pages(ROOT, {header: symbols.headers[header.name].page for header in headers}, symbols.names)
    pages.write(written)
    (written / "start.md").write_text(start_page(pages, symbols), encoding="utf-8")
    (written / "calls.dox").write_text(calls_pages(symbols, ROOT / "BrvEDK/Source/hostcalltable.inc", compiler), encoding="utf-8")
    (written / "records.dox").write_text(records_page(symbols, include, compiler), encoding="utf-8")

    warnings = doxygen(work, **common, GENERATE_HTML="YES", HTML_OUTPUT=work / "html",
                       IMAGE_PATH=[ROOT / path for path in sorted(pages.images)], HTML_HEADER=THEME / "header.html",
                       HTML_FOOTER=THEME / "footer.html", LAYOUT_FILE=THEME / "layout.xml",
                       USE_MDFILE_AS_MAINPAGE=written / "start.md")
    finish(work / "html", THEME)
    replace(site, work / "html")
    return warnings.replace(f"{work}/include/", "").replace(f"{written}/", "")


def contents(folder):
    """What is in it, but for names with a dot at the front: .git and the like belong to those who publish the site."""
    return [path for path in folder.iterdir() if not path.name.startswith(".")]


def may_be_replaced(folder):
    if not folder.exists():
        return True
    return folder.is_dir() and (not contents(folder) or (folder / INDEX).exists())


def main(site):
    if not may_be_replaced(site):
        what = "holds something else than a site" if site.is_dir() else "is no folder"
        print(f"docs: {site} {what}, and stays as it is", file=sys.stderr)
        return 2
    with tempfile.TemporaryDirectory() as work:
        try:
            warnings = make(site.resolve(), Path(work))
        except BadDocument as error:
            sys.exit(f"docs: {error}")
        except subprocess.CalledProcessError as error:
            sys.exit(f"docs: {error.cmd[0]} failed")
        except OSError as error:
            sys.exit(": ".join(filter(None, ["docs", error.filename2 or error.filename, error.strerror])))
        except KeyboardInterrupt:
            sys.exit(130)
    sys.stderr.write(warnings)
    return 1 if warnings else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
