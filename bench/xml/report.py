#!/usr/bin/env python3
"""Puts the results of xml_bench into a page and a picture: report.py RESULTS PAGE PICTURE

RESULTS is what xml_bench wrote as JSON. What stands in PAGE between the two markers is replaced by
tables; PICTURE is written anew.
"""
import sys
import textwrap
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1]))
import picture
from page import figure, markdown, put
from results import Results, counter

OURS = "oxa"
DOCUMENTS = ["extension", "graph", "text", "deep", "wide"]
SIZES = ["large", "small"]
SCALES = ["1x", "4x", "16x", "64x"]
# What is shown for whom, in this order.
LIBRARIES = [OURS, "pugixml", "RapidXML", "tinyxml2", "expat tree", "libxml2"]


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


class Picture(picture.Picture):
    """Bars in small panels: a row for each document, a column for each measure."""

    COLUMNS = [
        ("Parse from memory", "MB/s, more is better", "parse_memory", megabytes_per_second),
        ("Find", "million elements/s, more is better", "find", elements_per_microsecond),
        ("Serialize", "MB/s, more is better", "serialize", megabytes_per_second),
        ("Memory", "bytes per byte read, less is better", "memory", bytes_per_byte),
    ]
    ROWS = ["extension", "graph", "text"]
    LEFT, TOP, PANEL, GAP, ROW_GAP = 100, 92, 200, 36, 46

    def draw(self, results):
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
            self.bar_names(self.LEFT - 8, top, LIBRARIES)
            for column, (name, _, operation, value) in enumerate(self.COLUMNS):
                left = self.LEFT + column * (self.PANEL + self.GAP)
                if name == "Find" and document == "text":
                    self.text(left, top + self.BAR - 2, "too few elements", "note")
                    continue
                cases = [(operation, document, "large", library) for library in LIBRARIES]
                self.bars(left, top, self.PANEL, [results.median(case, value) for case in cases])
        return self.framed(
            width,
            self.TOP + len(self.ROWS) * height,
            "Speed and memory of XML libraries",
            "Bars for each library, in panels for three documents and four measures; the same "
            "figures stand in the tables of the page.",
        )


def main(arguments):
    if len(arguments) != 3:
        sys.exit(__doc__)
    results, page, drawn = map(Path, arguments)
    results = Results(results)
    put(page, "figures", tables(results))
    drawn.write_text(Picture().draw(results), encoding="utf-8")


main(sys.argv[1:])
