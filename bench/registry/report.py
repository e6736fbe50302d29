#!/usr/bin/env python3
"""Puts what a registry costs into a page and a picture: report.py RESULTS PAGE PICTURE

RESULTS is what registry_bench wrote as JSON.
"""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1]))
import picture
import reporting
from page import figure, grid
from results import manual_nanoseconds

OURS = "oxa"
REGISTRIES = [
    OURS,
    "std::map of multimaps",
    "unordered_map of multimaps",
    "unordered_map of vectors",
    "flat_hash_map of vectors",
    "robin_map of vectors",
]
ENTRIES = 1_000_000
STEPS = [
    ("File", "file"),
    ("List by namespace", "list_namespaces"),
    ("List by id", "list_ids"),
    ("Walk by namespace", "walk_namespaces"),
    ("Walk by id", "walk_ids"),
]
COMPARED = STEPS[:3]


def per_entry(results, step, registry):
    time = results.median((step, registry), manual_nanoseconds)
    return None if time is None else time / ENTRIES


def tables(results, drawn):
    figures = grid("ns per entry", REGISTRIES, [heading for heading, _ in STEPS],
                   lambda registry, at: per_entry(results, STEPS[at][1], registry))
    ratios = []
    for heading, step in COMPARED:
        best = min(per_entry(results, step, registry) for registry in REGISTRIES[1:])
        ratios.append(f"{heading.lower()} {figure(per_entry(results, step, OURS) / best)}")
    return "\n\n".join([
        f"![Time to file objects and to list them, beside maps](images/{drawn})",
        figures,
        f"Times the best of the maps: {', '.join(ratios)}.",
    ])


def draw(results):
    drawn = picture.Picture()
    left, width, gap, top = 210, 200, 30, 96
    drawn.text(16, 30, "A registry of a million objects", "head")
    drawn.bar_names(left - 8, top, REGISTRIES)
    for position, (heading, step) in enumerate(COMPARED):
        x = left + position * (width + gap)
        drawn.text(x, 58, heading, "column")
        drawn.text(x, 75, "ns per entry", "note")
        drawn.bars(x, top, width, [per_entry(results, step, each) for each in REGISTRIES])
    return drawn.framed(
        left + len(COMPARED) * (width + gap), top + len(REGISTRIES) * drawn.STEP + 16,
        "Time to file objects and to list them",
        "Bars for this library and five kinds of maps, in panels for three steps; the same figures "
        "stand in the table of the page.",
    )


reporting.run(__doc__, "registry", tables, draw)
