#!/usr/bin/env python3
"""Checks what the documentation says against the tree: check_docs.py [ROOT]

Code blocks are those of sources that are built, data that names a file is that file, links lead
somewhere, README.md stays short, and the tests that comments name exist. Prints one line per problem
and fails if there is any.
"""
import os
import re
import sys
import textwrap
from pathlib import Path
from urllib.parse import unquote

README_LINES = 120
# Languages whose blocks must come from a source, and those that are output or data.
CODE = {"cpp", "cmake", "sh"}
OTHER = {"text", "xml", "dot", "ini", "json"}

FENCE = re.compile(r"^(\s*)(`{3,}|~{3,})\s*(\S*)")
ORIGIN = re.compile(r"^\s*<!--\s*(snippet|command):\s*(.+?)\s*-->\s*$")
MARKER = re.compile(r"^\s*(?://|#) \[snippet(?:: (\S+)| (end))\]\s*$")
LINK = re.compile(r"\]\(\s*<?([^\s)>]+)")
DEFINITION = re.compile(r"^\s{0,3}\[[^\]]+\]:\s+<?([^\s>]+)")
HTML_LINK = re.compile(r"<(?:img|a|source)\b[^>]*?\b(?:src|href|srcset)=\"([^\"]+)\"")
HTML_ANCHOR = re.compile(r"<a\b[^>]*?\b(?:id|name)=\"([^\"]+)\"")
HEADING = re.compile(r"^#{1,6}\s+(.*?)\s*#*\s*$")

TEST = re.compile(r"\b(?:TYPED_)?TEST(?:_F|_P)?\(\s*(\w+)\s*,\s*(\w+)\s*\)")
COMMENT = re.compile(r"^\s*//(.*)|^.*\S\s+//(.*)")
TEST_NAME = re.compile(r"\b([A-Z]\w*)\.([A-Z]\w*)\b|\b([A-Z]\w*Test)\b")
IN_PARENTHESES = re.compile(r"\(([\w.,; ]+)\)")


def read(path):
    return path.read_text(encoding="utf-8")


class Document:
    """A Markdown file, taken apart into fenced blocks and the prose around them."""

    def __init__(self, path):
        self.path = path
        self.line_count = 0
        self.prose = []  # (line number, text)
        self.blocks = []  # (line number, language, origin match or None, text)
        self.unclosed = None
        fence = None
        previous = ""
        for number, line in enumerate(read(path).splitlines(), 1):
            self.line_count = number
            match = FENCE.match(line)
            if fence is None:
                if match:
                    fence = match[2]
                    start = (number, match[3], ORIGIN.match(previous))
                    content = []
                else:
                    self.prose.append((number, line))
                    previous = line
            elif match and match[2].startswith(fence) and not match[3]:
                self.blocks.append((*start, "\n".join(content)))
                fence = None
                previous = ""
            else:
                content.append(line)
        if fence is not None:
            self.unclosed = start[0]

    def anchors(self):
        found = set()
        counts = {}
        for _, line in self.prose:
            found.update(HTML_ANCHOR.findall(line))
            heading = HEADING.match(line)
            if heading:
                slug = anchor(heading[1])
                count = counts.get(slug, 0)
                counts[slug] = count + 1
                found.add(f"{slug}-{count}" if count else slug)
        return found

    def links(self):
        for number, line in self.prose:
            line = re.sub(r"`[^`]*`", "", line)
            for pattern in (LINK, DEFINITION, HTML_LINK):
                for target in pattern.findall(line):
                    yield number, target


def anchor(heading):
    """The anchor that a Markdown viewer makes of a heading."""
    heading = re.sub(r"!?\[([^\]]*)\]\([^)]*\)", r"\1", heading)
    heading = re.sub(r"[^\w\- ]", "", heading.lower())
    return heading.replace(" ", "-")


class Checker:
    def __init__(self, root):
        self.root = Path(root).resolve()
        self.problems = []
        self.documents = {}

    def report(self, path, number, text):
        self.problems.append(f"{path.relative_to(self.root)}:{number}: {text}")

    def document(self, path):
        if path not in self.documents:
            self.documents[path] = Document(path)
        return self.documents[path]

    def run(self):
        readme = self.root / "README.md"
        if not readme.is_file():
            self.report(readme, 1, "the file is missing")
        pages = [readme, self.root / "CHANGELOG.md", *sorted(self.root.glob("docs/**/*.md"))]
        for page in filter(Path.is_file, pages):
            document = self.document(page)
            if document.unclosed:
                self.report(page, document.unclosed, "the code block has no end")
            for block in document.blocks:
                self.check_block(document, *block)
            for number, target in document.links():
                self.check_link(document, number, target)
        if readme.is_file() and self.document(readme).line_count > README_LINES:
            self.report(readme, README_LINES + 1, f"there are more than {README_LINES} lines")
        self.check_test_names()
        return self.problems

    # Code blocks

    def check_block(self, document, number, language, origin, text):
        if language in OTHER and origin is None:
            return
        if language not in CODE | OTHER:
            names = ", ".join(sorted(CODE | OTHER))
            self.report(document.path, number, f"the code block must name its language: {names}")
        elif origin is None:
            self.report(document.path, number, "no snippet or command is named above the code block")
        elif origin[1] == "command":
            self.check_command(document, number, origin[2], text)
        else:
            self.check_snippet(document, number, origin[2], text)

    def check_command(self, document, number, command, text):
        script = self.root / command.split()[0]
        if not (script.is_file() and os.access(script, os.X_OK)):
            self.report(document.path, number, f"{command} is not an executable file")
        if command not in (line.strip() for line in text.splitlines()):
            self.report(document.path, number, f"the code block does not run {command}")

    def check_snippet(self, document, number, origin, text):
        name, _, region = origin.partition("#")
        source = self.root / name
        if not source.is_file():
            self.report(document.path, number, f"there is no source {name}")
            return
        found = regions(read(source)).get(region, []) if region else [read(source).rstrip("\n")]
        if len(found) != 1:
            self.report(document.path, number, f"{name} marks '{region}' {len(found)} times, not once")
        elif textwrap.dedent(text) != textwrap.dedent(found[0]):
            self.report(document.path, number, f"the code block differs from {origin}")

    # Links

    def check_link(self, document, number, target):
        if re.match(r"[a-z][a-z0-9+.-]*:", target):
            return
        name, _, fragment = unquote(target).partition("#")
        path = document.path
        if name:
            path = Path(os.path.normpath(path.parent / name))
            if self.root not in (path, *path.parents):
                self.report(document.path, number, f"the link {target} leaves the tree")
                return
            if not path.exists() or path.relative_to(self.root).parts[:1] == ("build",):
                self.report(document.path, number, f"the link {target} is dead")
                return
        if fragment and path.suffix == ".md" and fragment not in self.document(path).anchors():
            self.report(document.path, number, f"the link {target} names no heading")

    # Names of tests

    def check_test_names(self):
        cases = set()
        for source in sources(self.root / "tests") + sources(self.root / "examples"):
            cases.update(TEST.findall(read(source)))
        suites = {suite for suite, _ in cases}
        for source in sources(self.root / "src") + sources(self.root / "include"):
            for number, comment in comments(read(source)):
                named = test_names(comment)
                for suite, case in named:
                    if (suite, case) not in cases and not (case is None and suite in suites):
                        name = suite if case is None else f"{suite}.{case}"
                        self.report(source, number, f"there is no test {name}")
                if is_kept(comment) and not named:
                    self.report(source, number, "no test is named that pins what is kept")


def sources(folder):
    return [path for path in sorted(folder.rglob("*")) if path.suffix in (".h", ".cpp")]


def regions(text):
    """The marked regions of a source: their texts by name. Markers inside a region are left out."""
    found = {}
    open_regions = []
    for line in text.splitlines():
        marker = MARKER.match(line)
        if marker and marker[1]:
            lines = []
            open_regions.append(lines)
            found.setdefault(marker[1], []).append(lines)
        elif marker:
            if open_regions:
                open_regions.pop()
        else:
            for lines in open_regions:
                lines.append(line)
    return {name: ["\n".join(lines) for lines in texts] for name, texts in found.items()}


def comments(text):
    """Comments as (first line number, text): lines that hold nothing else are joined."""
    block = []
    start = 0
    for number, line in enumerate([*text.splitlines(), ""], 1):
        match = COMMENT.match(line)
        if match and match[1] is not None:
            start = start if block else number
            block.append(match[1].strip())
            continue
        if block:
            yield start, " ".join(block)
            block = []
        if match:
            yield number, match[2].strip()


def is_kept(comment):
    return re.search(r"\b[Kk]ept:", comment)


def test_names(comment):
    """The tests that a comment names, as (suite, case or None)."""
    kept = is_kept(comment)
    places = [comment[kept.end():]] if kept else IN_PARENTHESES.findall(comment)
    return [
        (match[1] or match[3], match[2]) for place in places for match in TEST_NAME.finditer(place)
    ]


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parents[2]
    problems = Checker(root).run()
    print(*problems, sep="\n", end="\n" if problems else "")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
