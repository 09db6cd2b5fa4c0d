#!/usr/bin/env python3
"""Draws what session_growth prints: time by number of sessions, both axes logarithmic.

    build/bench/bin/session_growth --modules build/bench/bin/protocols 1000 10000 100000 > bench/plots/session_growth.tsv
    bench/plots/session_growth.py < bench/plots/session_growth.tsv > bench/plots/session_growth.svg
"""
import math
import sys

WIDTH, HEIGHT, LEFT, RIGHT, TOP, BOTTOM = 680, 420, 70, 170, 30, 50
# Column of the table, what it is, seconds in its unit, colour.
LINES = [
    (5, "undo", 1, "#2a7f62"),
    (6, "apply", 1, "#1f5fa8"),
    (4, "first apply", 1, "#7a4fa3"),
    (3, "preview", 1, "#b0561f"),
    (1, "list a folder", 1e-3, "#777777"),
    (2, "open one", 1e-6, "#b02a4a"),
]


def scale(value, low, high, begin, end):
    return begin + (math.log10(value) - low) / (high - low) * (end - begin)


def main():
    rows = [list(map(float, line.split("\t"))) for line in sys.stdin if line.strip() and not line.startswith("#")]
    numbers = [row[0] for row in rows]
    seconds = [row[column] * unit for row in rows for column, _, unit, _ in LINES]
    x_low, x_high = math.log10(min(numbers)), math.log10(max(numbers))
    y_low, y_high = math.floor(math.log10(min(seconds))), math.ceil(math.log10(max(seconds)))
    x = lambda n: scale(n, x_low, x_high, LEFT, WIDTH - RIGHT)
    y = lambda s: scale(s, y_low, y_high, HEIGHT - BOTTOM, TOP)
    out = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" font-family="sans-serif" font-size="13">',
        f'<rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>',
    ]
    for power in range(y_low, y_high + 1):
        at = y(10**power)
        out.append(f'<path d="M{LEFT} {at:.1f}H{WIDTH - RIGHT}" stroke="#ddd"/>')
        out.append(f'<text x="{LEFT - 8}" y="{at + 4:.1f}" text-anchor="end">{10.0**power:g} s</text>')
    for number in numbers:
        out.append(f'<path d="M{x(number):.1f} {TOP}V{HEIGHT - BOTTOM}" stroke="#ddd"/>')
        out.append(f'<text x="{x(number):.1f}" y="{HEIGHT - BOTTOM + 20}" text-anchor="middle">{number:,.0f}</text>')
    out.append(f'<text x="{(LEFT + WIDTH - RIGHT) / 2}" y="{HEIGHT - 8}" text-anchor="middle">sessions, in 100 folders</text>')
    lowest = 0.0
    for column, name, unit, colour in sorted(LINES, key=lambda line: -rows[-1][line[0]] * line[2]):
        points = [(x(row[0]), y(row[column] * unit)) for row in rows]
        exponent = math.log(rows[-1][column] / rows[0][column]) / math.log(numbers[-1] / numbers[0])
        path = "L".join(f"{px:.1f} {py:.1f}" for px, py in points)
        out.append(f'<path d="M{path}" fill="none" stroke="{colour}" stroke-width="2"/>')
        out += [f'<circle cx="{px:.1f}" cy="{py:.1f}" r="3" fill="{colour}"/>' for px, py in points]
        label = max(points[-1][1], lowest + 16)
        lowest = label
        out.append(f'<text x="{WIDTH - RIGHT + 10}" y="{label + 4:.1f}" fill="{colour}">{name}, n^{exponent:.2f}</text>')
    out.append("</svg>")
    print("\n".join(out))


main()
