#!/usr/bin/env python3
"""Puts what loading plug-ins costs into a page and a picture: report.py RESULTS PAGE PICTURE

RESULTS is what plugins_bench wrote as JSON.
"""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1]))
import picture
import reporting
from page import figure, markdown
from results import counter

CASE = ("load_plugins",)
WAYS = [("LoadAll", "load_us"), ("open and call", "open_us")]


def table(results, drawn):
    rows = [[name, figure(results.median(CASE, counter(way)))] for name, way in WAYS]
    rows.append(["ratio", figure(results.median(CASE, counter("ratio")))])
    figures = markdown(rows, ["500 plug-ins", "µs each"])
    return f"![Time to load a plug-in](images/{drawn})\n\n{figures}"


def draw(results):
    drawn = picture.Picture()
    drawn.text(16, 30, "Loading 500 plug-ins", "head")
    drawn.text(130, 58, "µs each", "note")
    drawn.bar_names(122, 76, [name for name, _ in WAYS])
    drawn.bars(130, 76, 260, [results.median(CASE, counter(way)) for _, way in WAYS])
    return drawn.framed(
        400, 130, "Time to load a plug-in",
        "Two bars, for the loader and for opening the files alone; the same figures stand in the "
        "table of the page.",
    )


reporting.run(__doc__, "plug-ins", table, draw)
