"""What the reports of benchmarks share."""
import sys


def put(page, name, figures):
    """Replaces what stands in a page between the two markers of that name."""
    begin = f"<!-- {name}: begin (scripts/performance) -->"
    end = f"<!-- {name}: end -->"
    text = page.read_text(encoding="utf-8")
    before, found_begin, rest = text.partition(begin)
    _, found_end, after = rest.partition(end)
    if not found_begin or not found_end:
        sys.exit(f"{page} lacks the lines {begin} and {end}")
    page.write_text(f"{before}{begin}\n\n{figures}\n\n{end}{after}", encoding="utf-8")
