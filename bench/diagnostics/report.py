#!/usr/bin/env python3
"""Puts what a table of findings costs into a page and a picture: report.py RESULTS PAGE PICTURE

RESULTS is what table_bench wrote as JSON.
"""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1]))
import picture
import reporting
from page import figure, grid
from results import counter, manual_nanoseconds

OURS, MODEL, DATABASE = TABLES = ["oxa", "QStandardItemModel", "SQLite"]
SIZES = [1_000, 10_000, 30_000, 100_000, 1_000_000]
OPERATIONS = [
    ("Build", "build"),
    ("Read all", "read"),
    ("Four columns to six and back", "columns"),
    ("Destroy", "destroy"),
]


def per_row(results, operation, table, rows):
    time = results.median((operation, table, str(rows)), manual_nanoseconds)
    return None if time is None else time / rows


def points(results, operation, table):
    """The sizes at which it was measured, and the time per row."""
    pairs = [(rows, per_row(results, operation, table, rows)) for rows in SIZES]
    return [(rows, time) for rows, time in pairs if time is not None]


def summary(results):
    def ratio(operation, peer):
        return figure(per_row(results, operation, OURS, SIZES[-1])
                      / per_row(results, operation, peer, SIZES[-1]))

    def bytes_of(table):
        return results.median(("memory", table, str(SIZES[-1])), counter("bytes_per_row"))

    rows = f"{SIZES[-1]:,}"
    return "\n".join([
        f"- Building {rows} rows takes {ratio('build', MODEL)} times as long as in "
        f"QStandardItemModel and {ratio('build', DATABASE)} times as long as in SQLite; reading "
        f"them, {ratio('read', MODEL)} and {ratio('read', DATABASE)} times.",
        f"- A row takes {figure(bytes_of(OURS) / bytes_of(MODEL))} times the memory of one of "
        "QStandardItemModel.",
    ])


def tables(results, drawn):
    parts = [f"![Time and memory of a table of findings, beside others](images/{drawn})"]
    for heading, operation in OPERATIONS:
        sizes = sorted({rows for table in TABLES for rows, _ in points(results, operation, table)})
        parts.append(grid(f"{heading}, ns per row, of", TABLES, [f"{rows:,}" for rows in sizes],
                          lambda table, at: per_row(results, operation, table, sizes[at])))
    sizes = [rows for rows in SIZES if ("memory", OURS, str(rows)) in results.runs]
    for heading, name in [("Bytes", "bytes_per_row"), ("Allocations", "allocations_per_row")]:
        parts.append(grid(f"{heading} per row, of", TABLES, [f"{rows:,}" for rows in sizes],
                          lambda table, at: results.median(("memory", table, str(sizes[at])),
                                                           counter(name))))
    parts.append(summary(results))
    return "\n\n".join(parts)


def draw(results):
    panels = [
        (heading, "ns per row, by number of rows",
         [(table, points(results, operation, table)) for table in TABLES], [])
        for heading, operation in OPERATIONS[:3]
    ]
    memory = [
        (table, [(rows, results.median(("memory", table, str(rows)), counter("bytes_per_row")))
                 for rows in SIZES if ("memory", table, str(rows)) in results.runs])
        for table in TABLES
    ]
    panels.append(("Memory", "bytes per row, by number of rows", memory, []))
    return picture.in_a_row(
        "A table of findings with four typed cells to a row", panels,
        "Time and memory of tables of findings",
        "Lines for each table over the number of rows, in panels for building, reading, changing "
        "the columns and memory; the same figures stand in the tables of the page.",
    )


reporting.run(__doc__, "findings", tables, draw)
