"""Draws the pictures of the reports: panels with bars or lines."""
import math
from xml.sax.saxutils import escape

from page import figure

# Ours comes first. A line that is only a measure, such as a floor, is grey and dashed.
COLOURS = ["#0b5cad", "#b45309", "#7c3aed", "#0f766e", "#be185d"]
STYLE = (
    "text{font:13px system-ui,sans-serif;fill:#1f2933}"
    ".head{font-size:18px;font-weight:600}.column{font-weight:600}.row{font-weight:600}"
    ".note{fill:#52606d}.ours{fill:#0b5cad}.peer{fill:#9aa5b1}.us{font-weight:700;fill:#0b5cad}"
    ".axis{stroke:#52606d}"
)
LINE_STYLE = ".grid{stroke:#e4e7eb}.line{fill:none}.tick{font-size:11px;fill:#52606d}"


class Picture:
    BAR, STEP = 14, 20
    LINES_WIDTH, LINES_HEIGHT, LABELS = 170, 220, 150

    def __init__(self):
        self.parts = []
        self.style = STYLE

    def text(self, x, y, content, kind="", anchor="start", colour=None):
        fill = f' style="fill:{colour}"' if colour else ""
        self.parts.append(
            f'<text x="{x:.1f}" y="{y:.1f}" class="{kind}" text-anchor="{anchor}"{fill}>'
            f"{escape(content)}</text>"
        )

    def line(self, x1, y1, x2, y2, kind):
        self.parts.append(f'<line x1="{x1}" y1="{y1}" x2="{x2}" y2="{y2}" class="{kind}"/>')

    def bars(self, left, top, width, cells, ours=(0,)):
        """Bars one below the other with their values, to a scale of their own."""
        longest = max((cell for cell in cells if cell is not None), default=0)
        room = width - 44
        for position, cell in enumerate(cells):
            y = top + position * self.STEP
            length = 0 if cell is None else max(1, room * cell / longest)
            self.parts.append(
                f'<rect x="{left}" y="{y}" width="{length:.1f}" height="{self.BAR}" '
                f'class="{"ours" if position in ours else "peer"}"/>'
            )
            self.text(
                left + length + 5, y + self.BAR - 2, figure(cell), "us" if position in ours else ""
            )
        bottom = top + (len(cells) - 1) * self.STEP + self.BAR
        self.line(left, top - 3, left, bottom + 3, "axis")

    def bar_names(self, right, top, names, ours=(0,)):
        for position, name in enumerate(names):
            y = top + position * self.STEP + self.BAR - 2
            self.text(right, y, name, "us" if position in ours else "", "end")

    def lines(self, left, top, series, dashed=()):
        """Lines over two logarithmic scales, with their names behind them; series are pairs of a
        name and of points, which are pairs too."""
        self.style = STYLE + LINE_STYLE
        xs = [x for _, points in series for x, _ in points]
        ys = [y for _, points in series for _, y in points]
        first, last = math.floor(math.log10(min(ys))), math.ceil(math.log10(max(ys)))
        x_first, x_last = math.log10(min(xs)), math.log10(max(xs))
        bottom = top + self.LINES_HEIGHT

        def across(x):
            return left + self.LINES_WIDTH * (math.log10(x) - x_first) / (x_last - x_first)

        def up(y):
            return bottom - self.LINES_HEIGHT * (math.log10(y) - first) / (last - first)

        for power in range(first, last + 1):
            y = round(up(10**power), 1)
            self.line(left, y, left + self.LINES_WIDTH, y, "grid")
            self.text(left - 5, y + 4, f"{10**power:,.6g}", "tick", "end")
        for x in sorted(set(xs)):
            self.text(across(x), bottom + 16, short(x), "tick", "middle")
        self.line(left, bottom, left + self.LINES_WIDTH, bottom, "axis")
        ends = []
        colours = iter(COLOURS)
        for place, (name, points) in enumerate(series):
            colour = "#6b7280" if name in dashed else next(colours)
            path = " ".join(f"{across(x):.1f},{up(y):.1f}" for x, y in points)
            extra = ' stroke-dasharray="4 3"' if name in dashed else ""
            width = 1.5 if place else 2.5
            self.parts.append(
                f'<polyline points="{path}" class="line" stroke-width="{width}" '
                f'style="stroke:{colour}"{extra}/>'
            )
            end_x, end_y = points[-1]
            if end_x == max(xs):
                ends.append((up(end_y), name, colour))
            else:
                self.text(across(end_x), up(end_y) - 6, name, "", "middle", colour)
        self.line_names(left + self.LINES_WIDTH + 6, ends)

    def line_names(self, left, ends):
        """Names at the ends of lines, moved down where one would cover the other."""
        lowest = -math.inf
        for y, name, colour in sorted(ends):
            lowest = max(y + 4, lowest + 14)
            self.text(left, lowest, name, "", colour=colour)

    def framed(self, width, height, title, description):
        return "\n".join([
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
            f'width="{width}" height="{height}" role="img" aria-labelledby="title description">',
            f'<title id="title">{title}</title>',
            f'<desc id="description">{description}</desc>',
            f"<style>{self.style}</style>",
            f'<rect width="{width}" height="{height}" fill="#ffffff"/>',
            *self.parts,
            "</svg>\n",
        ])


def short(number):
    for unit, name in [(1_000_000, "M"), (1_000, "k")]:
        if number >= unit:
            return f"{number / unit:.3g}{name}"
    return f"{number:.3g}"


def in_a_row(heading, panels, title, description):
    """A picture of panels with lines side by side: (name, unit, series, dashed names)."""
    picture = Picture()
    step = 60 + Picture.LINES_WIDTH + Picture.LABELS
    picture.text(16, 30, heading, "head")
    for position, (name, unit, series, dashed) in enumerate(panels):
        left = 60 + position * step
        picture.text(left, 58, name, "column")
        picture.text(left, 75, unit, "note")
        picture.lines(left, 96, series, dashed)
    return picture.framed(len(panels) * step, 96 + Picture.LINES_HEIGHT + 34, title, description)
