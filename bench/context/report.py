#!/usr/bin/env python3
"""Puts what fetching a service costs into a page and a picture: report.py RESULTS PAGE PICTURE

RESULTS is what service_bench wrote as JSON.
"""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1]))
import picture
import reporting
from page import grid
from results import processor_nanoseconds

SIZES = [9, 100, 10_000]
FLOOR = "reference and release"
CASES = {
    "oxa": "context_lookup_and_release",
    "unordered_map": "unordered_map_lookup_with_shared_ptr",
    FLOOR: "reference_and_release",
}


def time(results, name, size):
    case = (CASES[name],) if name == FLOOR else (CASES[name], str(size))
    return results.median(case, processor_nanoseconds)


def table(results, drawn):
    figures = grid("Fetch and release, ns, among", CASES, [f"{size:,}" for size in SIZES],
                   lambda name, at: time(results, name, SIZES[at]))
    return f"![Time to fetch a service](images/{drawn})\n\n{figures}"


def draw(results):
    series = [(name, [(size, time(results, name, size)) for size in SIZES]) for name in CASES]
    panel = ("Fetch and release", "ns, by number of services", series, [FLOOR])
    return picture.in_a_row(
        "Fetching a service", [panel], "Time to fetch a service",
        "Lines for this library and two measures over the number of services; the same figures "
        "stand in the table of the page.",
    )


reporting.run(__doc__, "services", table, draw)
