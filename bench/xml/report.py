#!/usr/bin/env python3
"""Puts the results of xml_bench into a page and a picture: report.py RESULTS PAGE PICTURE

RESULTS is what xml_bench wrote as JSON. What stands in PAGE between the two markers is replaced by
tables; PICTURE is written anew.
"""
import json
import statistics
import sys
import textwrap
from pathlib import Path
from xml.sax.saxutils import escape

sys.path.insert(0, str(Path(__file__).parents[1]))
from page import put

OURS = "oxa"
DOCUMENTS = ["extension", "graph", "text", "deep", "wide"]
SIZES = ["large", "small"]
SCALES = ["1x", "4x", "16x", "64x"]
# What is shown for whom, in this order.
LIBRARIES = [OURS, "pugixml", "RapidXML", "tinyxml2", "expat tree", "libxml2"]


class Results:
    """The cases by operation, document, size and library."""

    def __init__(self, path):
        self.machine = json.loads(path.read_text(encoding="utf-8"))
        self.runs = {}
        self.errors = {}
        for run in self.machine["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            case = tuple(run["run_name"].split("/")[:4])
            if run.get("error_occurred"):
                self.errors[case] = run["error_message"]
            else:
                self.runs.setdefault(case, []).append(run)
        self.machine = self.machine["context"]

    def median(self, case, value):
        """The median of `value(run)` over the repetitions of a case, None when there is none."""
        values = [value(run) for run in self.runs.get(case, [])]
        return statistics.median(values) if values and None not in values else None

    def repetitions(self):
        return max(map(len, self.runs.values()))


def megabytes_per_second(run):
    return run["bytes_per_second"] / 1e6


def nanoseconds_per_element(run):
    # In fewer elements, the clock would be what is measured.
    return run["real_time"] * 1e6 / run["elements"] if run["elements"] >= 100 else None


def nanoseconds_per_byte(run):
    return 1e9 / run["bytes_per_second"]


def elements_per_microsecond(run):
    return 1e3 / nanoseconds_per_element(run)


def bytes_per_byte(run):
    return run["bytes_per_element"] * run["elements"] / run["size"]


def counter(name):
    return lambda run: run[name]


# Heading, operation, value of a run, whether more is better.
TABLES = [
    ("Parse from memory, MB/s", "parse_memory", megabytes_per_second, True),
    ("Parse from a file, MB/s", "parse_file", megabytes_per_second, True),
    ("Find by name and attribute, nanoseconds per element", "find", nanoseconds_per_element, False),
    ("Serialize to a file, MB/s", "serialize", megabytes_per_second, True),
    ("Destroy, nanoseconds per element", "destroy", nanoseconds_per_element, False),
    ("Memory, bytes per element", "memory", counter("bytes_per_element"), False),
    ("Memory, allocations per element", "memory", counter("allocations_per_element"), False),
]


def figure(number, missing="-"):
    """Three significant digits, without an exponent."""
    if number is None:
        return missing
    if number == 0:
        return "0"
    if number >= 100:
        return f"{number:,.0f}"
    if number >= 10:
        return f"{number:.1f}"
    if number >= 0.995:
        return f"{number:.2f}"
    return f"{number:.3f}" if number >= 0.01 else f"{number:.2g}" if number >= 1e-4 else "< 0.0001"


def markdown(rows, headings, words=1):
    """A table whose first columns, so many, are words and the others numbers."""
    lines = [headings, ["---"] * words + ["---:"] * (len(headings) - words), *rows]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines)


def comparison(results, operation, value, more_is_better):
    """One row for each document; the best figure of each stands out."""
    rows = []
    first_searches = operation == "find"
    for size in SIZES:
        for document in DOCUMENTS:
            cells = [results.median((operation, document, size, name), value) for name in LIBRARIES]
            there = [cell for cell in cells if cell is not None]
            if not there:
                continue
            best = max(there) if more_is_better else min(there)
            row = [f"{document}, {size}"]
            if first_searches:
                row.append(figure(results.median(("find_first", document, size, OURS), value)))
            for library, cell in zip(LIBRARIES, cells):
                refused = (operation, document, size, library) in results.errors
                shown = figure(cell, "no" if refused else "-")
                row.append(f"**{shown}**" if cell == best else shown)
            rows.append(row)
    headings = ["document", *([f"{OURS}, first"] if first_searches else []), *LIBRARIES]
    return markdown(rows, headings)


def growth(results):
    rows = []
    for operation in ["parse_memory", "find", "serialize", "destroy"]:
        for document in DOCUMENTS:
            cases = [("growth_" + operation, document, scale, OURS) for scale in SCALES]
            cells = [results.median(case, nanoseconds_per_byte) for case in cases]
            if any(cell is not None for cell in cells):
                rows.append([operation.replace("_", " from "), document, *map(figure, cells)])
    return markdown(rows, ["operation", "document", "1 MB", "4 MB", "16 MB", "64 MB"], words=2)


def refusals(results):
    """The errors, each once, with the documents and the library that it is about."""
    about = {}
    for (_, document, size, library), message in sorted(results.errors.items()):
        about.setdefault((library, message), {})[f"{document}, {size}"] = None
    return [
        f"- {library} ({'; '.join(cases)}): {message}"
        for (library, message), cases in about.items()
    ]


def tables(results):
    machine = results.machine
    caches = ", ".join(
        f"{cache['type']} L{cache['level']} {cache['size'] // 1024} KiB"
        for cache in machine.get("caches", [])
    )
    parts = [
        "![Speed of parsing, searching and writing, and memory, beside five other libraries]"
        "(images/xml_performance.svg)",
        textwrap.fill(
            f"Medians of repetitions in random order ({results.repetitions()} of each), on "
            f"{machine['num_cpus']} cores at {machine['mhz_per_cpu'] / 1000:.1f} GHz ({caches}). "
            f"Huge pages: `{machine.get('huge_pages', 'unknown')}`. The best of a row is bold; "
            '"no" marks what a library does not take, see the end.',
            width=100,
        ),
    ]
    for heading, operation, value, more_is_better in TABLES:
        direction = "more" if more_is_better else "less"
        parts.append(f"### {heading} ({direction} is better)")
        parts.append(comparison(results, operation, value, more_is_better))
    parts.append("### Growth, nanoseconds per byte of the document")
    parts.append(growth(results))
    refused = refusals(results)
    if refused:
        parts.append("### What was not measured")
        parts.append("\n".join(refused))
    return "\n\n".join(parts)


class Picture:
    """Bars in small panels: a row for each document, a column for each measure."""

    COLUMNS = [
        ("Parse from memory", "MB/s, more is better", "parse_memory", megabytes_per_second),
        ("Find", "million elements/s, more is better", "find", elements_per_microsecond),
        ("Serialize", "MB/s, more is better", "serialize", megabytes_per_second),
        ("Memory", "bytes per byte read, less is better", "memory", bytes_per_byte),
    ]
    ROWS = ["extension", "graph", "text"]
    LEFT, TOP, PANEL, GAP, BAR, STEP, ROW_GAP = 100, 92, 200, 36, 14, 20, 46
    STYLE = (
        "text{font:13px system-ui,sans-serif;fill:#1f2933}"
        ".head{font-size:18px;font-weight:600}.column{font-weight:600}.row{font-weight:600}"
        ".note{fill:#52606d}.ours{fill:#0b5cad}.peer{fill:#9aa5b1}.us{font-weight:700;fill:#0b5cad}"
        ".axis{stroke:#52606d}"
    )

    def __init__(self, results):
        self.results = results
        self.parts = []

    def text(self, x, y, content, kind="", anchor="start"):
        self.parts.append(
            f'<text x="{x:.1f}" y="{y:.1f}" class="{kind}" text-anchor="{anchor}">'
            f"{escape(content)}</text>"
        )

    def panel(self, left, top, cells):
        """Bars with their values, to a scale of their own."""
        longest = max((cell for cell in cells if cell is not None), default=0)
        room = self.PANEL - 44
        for position, (library, cell) in enumerate(zip(LIBRARIES, cells)):
            y = top + position * self.STEP
            ours = library == OURS
            width = 0 if cell is None else max(1, room * cell / longest)
            self.parts.append(
                f'<rect x="{left}" y="{y}" width="{width:.1f}" height="{self.BAR}" '
                f'class="{"ours" if ours else "peer"}"/>'
            )
            self.text(left + width + 5, y + self.BAR - 2, figure(cell), "us" if ours else "")
        bottom = top + (len(LIBRARIES) - 1) * self.STEP + self.BAR
        self.parts.append(
            f'<line x1="{left}" y1="{top - 3}" x2="{left}" y2="{bottom + 3}" class="axis"/>'
        )

    def draw(self):
        height = len(LIBRARIES) * self.STEP + self.ROW_GAP
        width = self.LEFT + len(self.COLUMNS) * (self.PANEL + self.GAP)
        self.text(16, 30, "Large XML documents: speed and memory, beside other libraries", "head")
        for column, (name, unit, _, _) in enumerate(self.COLUMNS):
            left = self.LEFT + column * (self.PANEL + self.GAP)
            self.text(left, 58, name, "column")
            self.text(left, 75, unit, "note")
        for row, document in enumerate(self.ROWS):
            top = self.TOP + row * height + 22
            self.text(16, top - 12, f"{document} document, large", "row")
            for position, library in enumerate(LIBRARIES):
                y = top + position * self.STEP + self.BAR - 2
                self.text(self.LEFT - 8, y, library, "us" if library == OURS else "", "end")
            for column, (name, _, operation, value) in enumerate(self.COLUMNS):
                left = self.LEFT + column * (self.PANEL + self.GAP)
                if name == "Find" and document == "text":
                    self.text(left, top + self.BAR - 2, "too few elements", "note")
                    continue
                cases = [(operation, document, "large", library) for library in LIBRARIES]
                self.panel(left, top, [self.results.median(case, value) for case in cases])
        return self.framed(width, self.TOP + len(self.ROWS) * height)

    def framed(self, width, height):
        title = "Speed and memory of XML libraries"
        description = (
            "Bars for each library, in panels for three documents and four measures; the same "
            "figures stand in the tables of the page."
        )
        return "\n".join([
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
            f'width="{width}" height="{height}" role="img" aria-labelledby="title description">',
            f'<title id="title">{title}</title>',
            f'<desc id="description">{description}</desc>',
            f"<style>{self.STYLE}</style>",
            f'<rect width="{width}" height="{height}" fill="#ffffff"/>',
            *self.parts,
            "</svg>\n",
        ])


def main(arguments):
    if len(arguments) != 3:
        sys.exit(__doc__)
    results, page, picture = map(Path, arguments)
    results = Results(results)
    put(page, "figures", tables(results))
    picture.write_text(Picture(results).draw(), encoding="utf-8")


main(sys.argv[1:])
