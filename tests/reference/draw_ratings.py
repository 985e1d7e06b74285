#!/usr/bin/env python3
"""Draws the pictures of docs/ratings.md: signals that a rating sees otherwise than the eye does. Every number in them
is computed here, by ratings.py.

    draw_ratings.py [FOLDER]    default: docs/pictures
"""

import math
import sys
from pathlib import Path

import ratings

# The norms of hundreds of lags as exact fractions would take minutes.
ratings.pearson = ratings.quick_pearson

WIDTH, HEIGHT, MARGIN, TITLE = 640, 220, 12, 26
REFERENCE, COMPUTED = "#1f4e9c", "#c0392b"


class Panel:
    """One chart with a title above it and a legend in it; x from 0 to `last`, y from -`top` to `top`."""

    def __init__(self, title, last, top):
        self.title, self.last, self.top, self.curves = title, last, top, []

    def add(self, name, color, values, first=0.0, step=1.0):
        self.curves.append((name, color, [(first + i * step, value) for i, value in enumerate(values)]))
        return self

    def _point(self, x, y, below):
        right, down = x / self.last, (self.top - y) / (2 * self.top)
        return f"{MARGIN + right * (WIDTH - 2 * MARGIN):.1f},{below + TITLE + down * (HEIGHT - TITLE - MARGIN):.1f}"

    def svg(self, below):
        zero = [self._point(x, 0.0, below).split(",") for x in (0.0, self.last)]
        parts = [f'<text x="{MARGIN}" y="{below + 17}" font-weight="bold">{self.title}</text>',
                 f'<path d="M{zero[0][0]} {zero[0][1]}H{zero[1][0]}" stroke="#999999"/>']
        for row, (name, color, points) in enumerate(self.curves):
            line = " ".join(self._point(x, y, below) for x, y in points)
            parts.append(f'<polyline points="{line}" fill="none" stroke="{color}" stroke-width="1.5"/>')
            parts.append(f'<text x="{WIDTH - MARGIN}" y="{below + TITLE + 16 * (row + 1)}" fill="{color}" '
                         f'text-anchor="end">{name}</text>')
        return "\n".join(parts)


def picture(*panels):
    height = HEIGHT * len(panels)
    content = "\n".join(panel.svg(HEIGHT * i) for i, panel in enumerate(panels))
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}" viewBox="0 0 {WIDTH} {height}" '
            f'font-family="sans-serif" font-size="13">\n<rect width="{WIDTH}" height="{height}" fill="#ffffff"/>\n'
            f'{content}\n</svg>\n')


def ring():
    m = [math.sin(i / 15) * math.exp(-i / 60) for i in range(600)]
    c = [0.8 * math.sin((i - 6) / 16) * math.exp(-i / 50) for i in range(600)]
    scores = ratings.iso_scores(m, c)
    _, shifted = ratings.overlap(m, c, scores["lag"])
    peak = ratings.peak(shifted)
    names = f'EP {scores["ep"]:.2f}, EM {scores["em"]:.2f}, ES {scores["es"]:.2f}, R {scores["r"]:.3f}'
    return picture(
        Panel("As they are", 600, 1).add("reference", REFERENCE, m).add("computed", COMPUTED, c),
        Panel(f'Shifted by the lag of {scores["lag"]} samples: {names}', 600, 1).add("reference", REFERENCE, m)
        .add(f"computed, shifted: largest value {peak:.2f}", COMPUTED, shifted))


def zero_reference():
    m, c = [0.0] * 200, [math.sin(i / 9) for i in range(200)]
    scores = ratings.iso_scores(m, c)
    names = ", ".join(f"{name.upper()} {scores[name]:g}" for name in ("z", "ep", "em", "es"))
    return picture(Panel(f'The algorithm gives {names}, R {scores["r"]:.3f}; we show "not available"', 200, 1.6)
                   .add("reference: zero", REFERENCE, m).add("computed", COMPUTED, c))


def quiet_tail():
    def sine(start, count):
        times = [0.02 * i - start for i in range(count)]
        return [math.exp(-t) * math.sin(2 * math.pi * t) if t > 0 else 0.0 for t in times]
    panels = []
    for count in (101, 801):
        m, c = sine(.14, count), sine(.24, count)
        deviation = ratings.anova(m, c)["standardDeviation"]
        panels.append(Panel(f"Window of {0.02 * (count - 1):g} s: ANOVA s = {deviation:.3f}", 0.02 * (count - 1), 0.9)
                      .add("reference", REFERENCE, m, step=0.02).add("computed", COMPUTED, c, step=0.02))
    return picture(*panels)


PICTURES = {"ratings-ring.svg": ring, "ratings-zero-reference.svg": zero_reference, "ratings-tail.svg": quiet_tail}


def main():
    folder = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parents[2] / "docs/pictures")
    for name, draw in PICTURES.items():
        (folder / name).write_text(draw(), encoding="utf-8")


if __name__ == "__main__":
    main()
