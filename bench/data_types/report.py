#!/usr/bin/env python3
"""Puts what record types cost into a page: report.py LOADING RESOLVING PAGE

LOADING and RESOLVING are what loading_bench and resolving_bench wrote as JSON.
"""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1]))
from page import put
from results import Results, counter

COUNTS = ["10", "1000", "100000", "1000000"]
ROWS = [
    ("`p::t`", ("BM_ResolveType", "plain")),
    ("`x$p::t%2`", ("BM_ResolveType", "decorated")),
    ("`unsigned long long`", ("BM_ResolveBuiltIn",)),
    ("two `std::unordered_map`", ("BM_ResolveInMaps",)),
]


def tables(results):
    def time(*case):
        return results.median(case, counter("cpu_time"))

    parse = time("BM_ParseFolder")
    load = time("BM_LoadFolder")
    types = 100000
    lines = [
        "| 1,000 files, 100,000 types, 400,000 members | ms | ns per type |",
        "|---|---:|---:|",
        f"| parse and end each file | {parse:.0f} | {parse * 1e6 / types:.0f} |",
        f"| load the folder | {load:.0f} | {load * 1e6 / types:.0f} |",
        f"| ratio | {load / parse:.2f} | |",
        "",
        "| resolve, ns | " + " | ".join(f"{int(count):,} types" for count in COUNTS) + " |",
        "|---|" + "---:|" * len(COUNTS),
    ]
    for name, case in ROWS:
        cells = (f"{time(*case, count):.0f}" for count in COUNTS)
        lines.append(f"| {name} | " + " | ".join(cells) + " |")
    return "\n".join(lines)


def main(arguments):
    if len(arguments) != 3:
        sys.exit(__doc__)
    loading, resolving, page = map(Path, arguments)
    put(page, "record types", tables(Results(loading, resolving)))


main(sys.argv[1:])
