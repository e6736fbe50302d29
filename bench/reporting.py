"""Runs a report that has one file of results, one place in the page, and one picture."""
import sys
from pathlib import Path

from page import put
from results import Results


def run(usage, name, figures, draw):
    """Puts `figures(results, name of the picture)` into the page, and `draw(results)` beside it.

    The arguments of the program are the results, the page and the picture."""
    if len(sys.argv) != 4:
        sys.exit(usage)
    written, page, drawn = map(Path, sys.argv[1:])
    results = Results(written)
    put(page, name, figures(results, drawn.name))
    drawn.write_text(draw(results), encoding="utf-8")
