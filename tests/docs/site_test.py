"""The reference, as its readers get it: made without a warning, whole, and with no link that leads nowhere."""

import html
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from html.parser import HTMLParser
from urllib.parse import unquote, urldefrag, urlsplit

SOURCE, BUILD = pathlib.Path(os.environ["BRV_SOURCE"]), pathlib.Path(os.environ["BRV_BUILD"])
KIT = [path.resolve() for path in sorted((BUILD / "include/BrvEDK").iterdir())] + [SOURCE / "platform/include/brvplatform.h"]

HOST_CALLS = len(re.findall(r"^BX_", (SOURCE / "tests/BrvEDK/bridge/calls.txt").read_text(), re.M))


def code_of(path):
    return re.sub(r"//[^\n]*", "", path.read_text(encoding="utf-8"))


def page_of(header):
    """The page that Doxygen gives a header."""
    return f"{header.stem}_8{header.suffix[1:]}.html"


def document_page(document):
    """The page of a document."""
    return re.sub(r"\W", "-", str(document.relative_to(SOURCE).with_suffix(""))).lower() + ".html"


def make(folder, source=SOURCE, **variables):
    return subprocess.run([source / "scripts/docs.sh", folder], capture_output=True, text=True, env={**os.environ, **variables})


class Page(HTMLParser):
    """A page: its links, its anchors, its headings of symbols, and its tables as rows of texts below their headings."""

    def __init__(self, path):
        super().__init__()
        self.links, self.anchors, self.symbols, self.rows = [], set(), [], {}
        self._in, self._heading, self._text = None, "", []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.links += [attributes[name] for name in ("href", "src", "data") if name in attributes]
        self.anchors.update(attributes[name] for name in ("id", "name") if name in attributes)
        if tag in ("h1", "h2", "td") and self._in is None:
            self._in, self._text = attributes.get("class") or tag, []
        elif tag == "tr":
            self.rows.setdefault(self._heading, []).append([])
        elif tag == "br":
            self._text.append("\n")

    def handle_endtag(self, tag):
        if tag not in ("h1", "h2", "td") or self._in is None:
            return
        text = "".join(self._text).strip()
        if self._in == "memtitle":
            self.symbols.append(re.fullmatch(r"(?:◆\s*)?(.*?)(?:\(\))?(?:\s*\[\d+/\d+\])?", text)[1])
        elif tag == "td":
            self.rows[self._heading][-1].append(text)
        else:
            self._heading = text
        self._in = None

    def handle_data(self, data):
        self._text.append(data)

    def table(self, heading):
        return [row for row in self.rows.get(heading, []) if row]


@unittest.skipUnless(shutil.which("doxygen"), "no Doxygen")
class Site(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()), "site")
        cls.made = make(cls.folder)
        cls.pages = {path.name: Page(path) for path in sorted(cls.folder.glob("*.html"))}
        cls.symbols = {symbol for page in cls.pages.values() for symbol in page.symbols}

    def test_is_made_without_a_warning(self):
        self.assertEqual((self.made.returncode, self.made.stderr, self.made.stdout), (0, "", f"{self.folder}/index.html\n"))

    def test_has_a_page_for_each_installed_header_and_document(self):
        wanted = [*map(page_of, KIT), *map(document_page, (SOURCE / "docs").glob("*.md"))]
        self.assertGreater(len(wanted), 30)
        self.assertEqual([name for name in wanted if name not in self.pages], [])
        self.assertEqual([name for name in wanted if name not in self.pages["index.html"].links], [])

    def test_has_every_exported_function_that_a_header_declares(self):
        lines = (SOURCE / "cmake/kitexports.txt").read_text(encoding="utf-8").splitlines()
        exported = {line for line in lines if not line.startswith("#")}
        mangled = "\n".join(sorted(name for name in exported if name.startswith("_Z")))
        plain = subprocess.run(["c++filt", "--no-params"], input=mangled, capture_output=True, text=True, check=True).stdout
        names = {name.split("::")[-1] for name in {*exported, *plain.split("\n")}}
        declared = {name for header in KIT for name in re.findall(r"(~?\w+)\(", code_of(header))}
        wanted = names & declared
        # The host calls, the entry points under both names, and the functions of the kit.
        self.assertGreater(len(wanted), HOST_CALLS + 12 + 50)
        self.assertEqual(sorted(wanted - self.symbols), [])

    def test_has_every_constant_and_record(self):
        code = "".join(map(code_of, KIT))
        wanted = {*re.findall(r"^inline constexpr .*?(\w+) =", code, re.M), *re.findall(r"^#define (\w+)", code, re.M)}
        self.assertGreater(len(wanted), 30)
        self.assertEqual(sorted(wanted - self.symbols), [])
        records = re.findall(r"^(struct|class) (?:BRV_EXPORT )?(\w+) \{", code, re.M)
        self.assertGreater(len(records), 20)
        self.assertEqual([name for kind, name in records if f"{kind}{name.replace('_', '__')}.html" not in self.pages], [])

    def test_has_no_link_that_leads_nowhere(self):
        lost, local = [], 0
        for name, page in self.pages.items():
            for link in page.links:
                if urlsplit(link).scheme:
                    if urlsplit(link).scheme != "https" or "." not in urlsplit(link).netloc:
                        lost.append((name, link))
                    continue
                target, anchor = urldefrag(link)
                target, local = unquote(target) or name, local + 1
                if not (self.folder / target).is_file() or (anchor and anchor not in self.pages[target].anchors):
                    lost.append((name, link))
        self.assertGreater(local, 1000)
        self.assertEqual(lost, [])

    def test_takes_the_links_of_documents_to_their_pages(self):
        lost, count = [], 0
        headers = {header: page_of(header) for header in KIT}
        for document in sorted((SOURCE / "docs").glob("*.md")):
            prose = re.sub(r"^```.*?^```|^    .*?$", "", document.read_text(encoding="utf-8"), flags=re.M | re.S)
            for target, anchor in re.findall(r"\]\(([\w./-]+)#?([\w-]*)\)", prose):
                path = (document.parent / target).resolve()
                page = document_page(path) if path.suffix == ".md" else headers.get(path)
                if page:
                    count += 1
                    page += f"#{page.removesuffix('.html')}-{anchor}" if anchor else ""
                    if page not in self.pages[document_page(document)].links:
                        lost.append((document.name, target, anchor))
        self.assertGreater(count, 15)
        self.assertEqual(lost, [])

    def test_shows_tags_in_tables_as_they_are_written(self):
        document = SOURCE / "docs/hidden-ledger-lines.md"
        rows = re.findall(r"^\| (.*) \|$", document.read_text(encoding="utf-8"), re.M)
        cells = [row.replace("`", "").split(" | ") for row in rows if "`<" in row]
        self.assertGreater(len(cells), 20)
        shown = [row for table in self.pages[document_page(document)].rows.values() for row in table]
        self.assertEqual([row for row in cells if row not in shown], [])

    def test_shows_code_in_prose_as_it_is_written(self):
        records = set(re.findall(r"^(?:struct|class) (?:BRV_EXPORT )?(\w+) \{", "".join(map(code_of, KIT)), re.M))
        lost, count = [], 0
        for document in sorted([*SOURCE.glob("docs/*.md"), SOURCE / "CONTRIBUTING.md"]):
            # In headings the marks of code are left out, and names of symbols and records are links.
            prose = re.sub(r"^```.*?^```$|^    .*?$|^#.*?$", "", document.read_text(encoding="utf-8"), flags=re.M | re.S)
            spans = {" ".join(span.split()) for span in re.findall(r"`([^`]+)`", prose)} - self.symbols - records
            page = (self.folder / document_page(document)).read_text(encoding="utf-8")
            shown = {" ".join(html.unescape(re.sub("<.*?>", "", code)).split()) for code in re.findall(r"<code>(.*?)</code>", page, re.S)}
            count += len(spans)
            lost += [(document.name, span) for span in sorted(spans - shown)]
        self.assertGreater(count, 500)
        self.assertEqual(lost, [])

    def test_has_the_offsets_that_the_headers_assert(self):
        page = self.pages["records.html"]
        code = "".join(map(code_of, KIT))
        sizes = re.findall(r"static_assert\(sizeof\((\w+)\) == (\d+)\)", code)
        offsets = re.findall(r"static_assert\(offsetof\((\w+), (\w+)\) == (\d+)\)", code)
        self.assertGreater(len(sizes), 15)
        self.assertGreater(len(offsets), 25)
        for record, member, offset in offsets:
            self.assertIn((offset, member), [(row[0], row[2]) for row in page.table(record)], record)
        for record, size in sizes:
            last = page.table(record)[-1]
            # Records are packed: each ends with its last member.
            self.assertEqual(int(last[0]) + int(last[1]), int(size), record)

    def test_has_the_calls_by_family_with_their_classes_and_defaults(self):
        table = re.sub(r"//[^\n]*", "", (SOURCE / "BrvEDK/Source/hostcalltable.inc").read_text(encoding="utf-8"))
        prototypes = code_of(SOURCE / "BrvEDK/Source/hostprototypes.inc")
        wanted, family = {}, None
        for title, kind, name, default in re.findall(
                r'^HOST_GROUP\("(.*?)"\)|^HOST_CALL(\w*)\(.*?(BX_\w+)(?:, (-?\d+))?', table, re.M):
            if title:
                family = wanted.setdefault(title, [])
                continue
            result, arguments = re.search(rf"BRV_EXPORT ([\w*]+) {name}\(([^)]*)\)", prototypes).groups()
            arguments = [" ".join(text.split()) for text in arguments.split(",")][:-1]
            family.append([name, "\n".join(arguments), *(["", ""] if result == "void" else [result, default or "0"])])
        self.assertEqual(sum(map(len, wanted.values())), HOST_CALLS)
        page = self.pages["calls.html"]
        shown = {title: [[cell.replace(" *", "*").replace("\n\n", "\n") for cell in row] for row in page.table(title)] for title in wanted}
        self.assertEqual(shown, wanted)

    def test_finds_every_symbol_and_heading_by_its_index(self):
        text = (self.folder / "searchindex.js").read_text(encoding="utf-8")
        places = json.loads(text.removeprefix("const searchIndex = ").removesuffix(";\n"))
        titles = {re.sub(r"(\(\))?( \[\d+/\d+\])?$", "", title) for title, _, _, _ in places}
        self.assertGreater(len(self.symbols), 300)
        self.assertEqual(sorted(symbol for symbol in self.symbols if symbol not in titles), [])
        for _, _, link, _ in places:
            target, anchor = urldefrag(link)
            self.assertTrue(not anchor or anchor in self.pages[target].anchors, link)


@unittest.skipUnless(shutil.which("doxygen"), "no Doxygen")
class Making(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def tree(self):
        """A copy of the sources, to be changed."""
        tree = self.folder / "the tree"
        shutil.copytree(SOURCE, tree, ignore=shutil.ignore_patterns("build", "dist", ".git", "corpus"))
        return tree

    def test_stops_at_a_document_whose_link_leads_to_no_file(self):
        tree = self.tree()
        document = tree / "docs/glossary.md"
        text = document.read_text(encoding="utf-8")
        document.write_text(f"{text}\n[Nowhere](nowhere.md#at-all).\n", encoding="utf-8")
        made = make(self.folder / "site", tree)
        self.assertEqual((made.returncode, made.stderr),
                         (1, "docs: docs/glossary.md has a link to nowhere.md#at-all, which is not there\n"))
        document.write_text(text.removeprefix("# "), encoding="utf-8")
        self.assertEqual(make(self.folder / "site", tree).stderr, "docs: docs/glossary.md does not begin with its title\n")
        self.assertFalse((self.folder / "site").exists())

    def test_reports_a_symbol_without_a_comment_and_a_name_that_leads_nowhere(self):
        tree = self.tree()
        header = tree / "util/moddiv.h"
        text = header.read_text(encoding="utf-8")
        declaration = "BRV_EXPORT void UtilModDiv("
        changed = text.replace(declaration, f"BRV_EXPORT void Bare();\n\n// As kNowhere.\nBRV_EXPORT void Other();\n\n{declaration}")
        header.write_text(re.sub(r"// Divides(?:.*\n)*?(?=BRV_EXPORT)", "", changed), encoding="utf-8")
        made = make(self.folder / "site", tree)
        self.assertEqual(made.returncode, 1)
        self.assertRegex(made.stderr, r"(?m)^BrvEDK/moddiv\.h:\d+: warning: Member Bare\(\) .*is not documented")
        self.assertRegex(made.stderr, r"(?m)^BrvEDK/moddiv\.h:\d+: warning: .*kNowhere.* could not be resolved")

    def test_replaces_a_site_and_nothing_else(self):
        (self.folder / "score.musicxml").write_text("")
        made = make(self.folder)
        self.assertEqual((made.returncode, made.stderr),
                         (2, f"docs: {self.folder} holds something else than a site, and stays as it is\n"))
        self.assertEqual([path.name for path in self.folder.iterdir()], ["score.musicxml"])
        (self.folder / "score.musicxml").rename(self.folder / "searchindex.js")
        self.assertEqual(make(self.folder).returncode, 0)
        self.assertTrue((self.folder / "index.html").exists())

    def test_keeps_the_folder_of_a_site_and_what_begins_with_a_dot(self):
        old = self.folder / "search"
        old.mkdir()
        for path in (old / "old.html", self.folder / "searchindex.js", self.folder / ".nojekyll"):
            path.write_text("")
        before = self.folder.stat().st_ino
        self.assertEqual(make(self.folder).returncode, 0)
        self.assertEqual(self.folder.stat().st_ino, before)
        self.assertTrue((self.folder / "index.html").exists())
        self.assertTrue((self.folder / ".nojekyll").exists())
        self.assertFalse(old.exists())

    def test_goes_into_a_folder_in_which_all_begins_with_a_dot(self):
        (self.folder / ".git").write_text("")
        self.assertEqual(make(self.folder).returncode, 0)
        self.assertTrue((self.folder / "index.html").exists())
        self.assertTrue((self.folder / ".git").exists())

    def test_leaves_a_file_alone(self):
        score = self.folder / "score.musicxml"
        score.write_text("<score-partwise/>")
        made = make(score)
        self.assertEqual((made.returncode, made.stderr), (2, f"docs: {score} is no folder, and stays as it is\n"))
        self.assertEqual(score.read_text(), "<score-partwise/>")

    def test_keeps_the_old_site_where_the_new_one_cannot_be_put(self):
        for name in ("index.html", "searchindex.js", ".docs-new"):
            (self.folder / name).write_text("old")
        made = make(self.folder)
        self.assertEqual((made.returncode, made.stderr), (1, f"docs: {self.folder}/.docs-new: File exists\n"))
        self.assertEqual({path.name: path.read_text() for path in self.folder.iterdir()},
                         {"index.html": "old", "searchindex.js": "old", ".docs-new": "old"})

    def doxygen(self, commands):
        """A PATH with these commands as Doxygen."""
        program = self.folder / "bin/doxygen"
        program.parent.mkdir()
        program.write_text(f"#!/bin/sh\n{commands}\n")
        program.chmod(0o755)
        return f"{program.parent}:{os.environ['PATH']}"

    def test_reports_files_of_doxygen_that_are_cut_short(self):
        path = self.doxygen('xml=$(sed -n \'s/^XML_OUTPUT = "\\(.*\\)"/\\1/p\' "$1"); mkdir "$xml"; : > "$xml/index.xml"')
        made = make(self.folder / "site", PATH=path)
        self.assertEqual(made.returncode, 1)
        self.assertRegex(made.stderr, r"^docs: \S+: doxygen left files that cannot be read; the disk may be full\n$")
        self.assertFalse((self.folder / "site").exists())

    def test_ends_quietly_when_it_is_interrupted(self):
        started = self.folder / "started"
        path = self.doxygen(f": > '{started}'; exec sleep 60")
        process = subprocess.Popen([SOURCE / "scripts/docs.sh", self.folder / "site"], env={**os.environ, "PATH": path},
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, start_new_session=True)
        while not started.exists():
            self.assertIsNone(process.poll())
            time.sleep(0.01)
        os.killpg(process.pid, signal.SIGINT)
        self.assertEqual((*process.communicate(timeout=30), process.returncode), ("", "", 130))

    def test_names_the_program_that_fails(self):
        made = make(self.folder / "site", CXX="false")
        self.assertEqual((made.returncode, made.stderr), (1, "docs: false failed\n"))

    def test_names_the_program_that_is_not_there(self):
        made = make(self.folder / "site", CXX="no-such-compiler")
        self.assertEqual((made.returncode, made.stderr), (1, "docs: no-such-compiler: No such file or directory\n"))

    def test_names_the_path_that_it_cannot_make(self):
        file = self.folder / "file"
        file.write_text("")
        made = make(file / "site")
        self.assertEqual((made.returncode, made.stderr), (1, f"docs: {file}/site: Not a directory\n"))

    def test_needs_one_folder_at_most(self):
        for arguments in ((self.folder / "a", "b"), ("--help",)):
            made = subprocess.run([SOURCE / "scripts/docs.sh", *arguments], capture_output=True, text=True)
            self.assertEqual((made.returncode, made.stderr), (2, "usage: scripts/docs.sh [FOLDER]\n"))


if __name__ == "__main__":
    unittest.main()
