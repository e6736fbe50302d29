"""What the reports of benchmarks share: figures as text, tables, and where they go in a page."""
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


def grid(corner, names, headings, cell):
    """A table of figures: a row for each name, `cell(name, position)` under each heading."""
    rows = [[name, *(figure(cell(name, at)) for at in range(len(headings)))] for name in names]
    return markdown(rows, [corner, *headings])


def span(numbers):
    """The least and the greatest, as text."""
    return f"{figure(min(numbers))} to {figure(max(numbers))}"
