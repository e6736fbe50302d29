#!/usr/bin/env python3
"""Puts what settings cost into a page and a picture: report.py RESULTS PAGE PICTURE

RESULTS is what settings_bench wrote as JSON.
"""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1]))
import picture
import reporting
from page import grid, span
from results import processor_nanoseconds

OURS = ["oxa", "oxa, text"]
PEERS = ["GKeyFile", "QSettings", "property_tree"]
FLOOR, JOINED = "map", "map, joined keys"
STORES = [*OURS, *PEERS, FLOOR, JOINED]
SIZES = [100, 1_000, 10_000, 100_000, 1_000_000]
OPERATIONS = [
    ("Get an integer", "get_integer"),
    ("Set an integer", "set_integer"),
    ("Get a real", "get_real"),
    ("Set a real", "set_real"),
]


def summary(results, time):
    """How far the aims are reached, over all operations and sizes."""
    cases = [(operation, size) for _, operation in OPERATIONS for size in SIZES]
    lines = []
    for ours in OURS:
        peers = [time(ours, *case) / min(time(peer, *case) for peer in PEERS) for case in cases]
        floor = [time(ours, *case) / time(FLOOR, *case) for case in cases]
        joined = [time(ours, *case) / time(JOINED, *case) for case in cases]
        growth = [
            time(ours, operation, SIZES[-1]) / time(ours, operation, SIZES[0])
            / (time(FLOOR, operation, SIZES[-1]) / time(FLOOR, operation, SIZES[0]))
            for _, operation in OPERATIONS
        ]
        lines.append(
            f"- {ours}: {span(peers)} times the best of the other stores, {span(floor)} times the "
            f"map ({span(joined)} times the one with joined keys); from {SIZES[0]} settings to "
            f"{SIZES[-1]:,} it grows {span(growth)} times as much as the map."
        )
    return "\n".join(lines)


def tables(results, drawn):
    def time(store, operation, size):
        return results.median((operation, store, str(size)), processor_nanoseconds)

    parts = [f"![Time to get and to set a setting, beside other stores](images/{drawn})"]
    for heading, operation in OPERATIONS:
        headings = [f"{size:,}" for size in SIZES]
        parts.append(grid(f"{heading}, ns, among", STORES, headings,
                          lambda store, at: time(store, operation, SIZES[at])))
    parts.append(summary(results, time))
    return "\n\n".join(parts)


def draw(results):
    panels = []
    for heading, operation in OPERATIONS:
        series = []
        for store in [*OURS, *PEERS, FLOOR]:
            times = [results.median((operation, store, str(size)), processor_nanoseconds)
                     for size in SIZES]
            series.append((store, list(zip(SIZES, times))))
        panels.append((heading, "ns, by number of settings", series, [FLOOR]))
    return picture.in_a_row(
        "Getting and setting one of many settings", panels, "Time to get and to set a setting",
        "Lines for each store over the number of settings, in panels for four operations; the same "
        "figures stand in the tables of the page.",
    )


reporting.run(__doc__, "settings", tables, draw)
