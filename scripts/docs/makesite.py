"""Makes the reference of the kit as a site.

    makesite.py FOLDER    a site that is there is replaced; exit status 1: Doxygen warns of something; 2: the folder holds
                          something else
"""

import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import search
from calls import calls_pages
from pages import Pages
from records import records_page
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


def doxygen(work, log, **settings):
    text = f"@INCLUDE = {THEME}/Doxyfile\n" + "".join(f"{name} = {value}\n" for name, value in settings.items())
    (work / "Doxyfile").write_text(text, encoding="utf-8")
    with open(log, "w", encoding="utf-8") as out:
        subprocess.run(["doxygen", work / "Doxyfile"], check=True, stdout=out, stderr=out, cwd=ROOT)


def start_page(pages, symbols):
    headers = "\n".join(f"- [{name}]({header.page}): {header.brief}" for name, header in sorted(symbols.headers.items()))
    documents = "\n".join(f"- [{document.title}]({document.name}.html): {document.summary}"
                          for path, document in sorted(pages.documents.items(), key=lambda item: item[1].title.lower()))
    start = (THEME / "start.md").read_text(encoding="utf-8")
    return start.replace("%HEADERS%", headers).replace("%DOCUMENTS%", documents)


def make(site, work):
    headers = kit_headers()
    include = installed(headers, work / "include")
    common = {"INPUT": f"{work}/include {work}/pages", "STRIP_FROM_PATH": f"{work}/include {work}/pages",
              "STRIP_FROM_INC_PATH": f"{work}/include", "PROJECT_NUMBER": version()}
    doxygen(work, work / "first.log", **common, GENERATE_XML="YES", XML_OUTPUT=work / "xml", WARNINGS="NO")
    symbols = Symbols(work / "xml")

    written = work / "pages"
    written.mkdir()
    compiler = [*shlex.split(os.environ.get("CXX", "c++")), "-std=c++20", f"-I{work}/include", f"-I{ROOT}/platform/include"]
    pages = Pages(ROOT, {header: symbols.headers[header.name].page for header in headers}, symbols.names)
    pages.write(written)
    (written / "start.md").write_text(start_page(pages, symbols), encoding="utf-8")
    (written / "calls.dox").write_text(calls_pages(symbols, ROOT / "BrvEDK/Source/hostcalltable.inc", compiler), encoding="utf-8")
    (written / "records.dox").write_text(records_page(symbols, include, compiler), encoding="utf-8")

    images = " ".join(str(ROOT / path) for path in sorted(pages.images))
    doxygen(work, work / "log", **common, GENERATE_HTML="YES", HTML_OUTPUT=work / "html", IMAGE_PATH=images,
            HTML_HEADER=THEME / "header.html", HTML_FOOTER=THEME / "footer.html", LAYOUT_FILE=THEME / "layout.xml",
            USE_MDFILE_AS_MAINPAGE=written / "start.md")
    search.finish(work / "html", THEME)
    shutil.rmtree(site, ignore_errors=True)
    site.parent.mkdir(parents=True, exist_ok=True)
    shutil.move(work / "html", site)
    return (work / "log").read_text(encoding="utf-8").replace(f"{work}/include/", "").replace(f"{work}/pages/", "")


def may_be_replaced(folder):
    return not folder.exists() or not any(folder.iterdir()) or (folder / search.INDEX).exists()


def main(site):
    if not may_be_replaced(site):
        print(f"docs: {site} holds something else than a site, and stays as it is", file=sys.stderr)
        return 2
    with tempfile.TemporaryDirectory() as work:
        warnings = make(site.resolve(), Path(work))
    sys.stderr.write(warnings)
    return 1 if warnings else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
