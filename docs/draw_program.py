#!/usr/bin/env python3
"""Draws an NC program of the table PPR.ini as an SVG picture: sheet, cuts, lead-ins, rapids and pierce points.

    docs/draw_program.py PROGRAM.nc WIDTH HEIGHT > picture.svg        WIDTH, HEIGHT: the sheet

docs/images/nest.svg shows the program that the command in README.md writes, on a sheet of 520 x 350.
"""
import math
import re
import sys

WORD = re.compile(r"([GXYIJ])(-?\d+(?:\.\d+)?)")


def read_cuts(path):
    """Rapids as point pairs; cuts as a start and a list of (code, x, y, i, j)."""
    x = y = 0.0
    rapids, cuts = [], []
    for line in open(path, encoding="utf-8"):
        line = re.sub(r"\(.*?\)|^N\d+ ", "", line)
        words = WORD.findall(line)
        values = {letter: float(value) for letter, value in words if letter != "G"}
        codes = [int(value) for letter, value in words if letter == "G"]
        code = next((c for c in codes if c in (0, 1, 2, 3)), None)
        if code is None or "X" not in values:
            continue
        if code == 0:
            rapids.append(((x, y), (values["X"], values["Y"])))
            cuts.append(((values["X"], values["Y"]), []))
        else:
            cuts[-1][1].append((code, values["X"], values["Y"], values.get("I", 0.0), values.get("J", 0.0)))
        x, y = values["X"], values["Y"]
    return rapids, [cut for cut in cuts if cut[1]]


def svg_path(start, moves):
    x, y = start
    d = [f"M{x:.3f} {y:.3f}"]
    for code, ex, ey, i, j in moves:
        if code == 1:
            d.append(f"L{ex:.3f} {ey:.3f}")
        else:
            radius = math.hypot(i, j)
            a = math.atan2(-j, -i)
            b = math.atan2(ey - y - j, ex - x - i)
            sweep = (b - a) % (2 * math.pi) if code == 3 else (a - b) % (2 * math.pi)
            if math.hypot(ex - x, ey - y) < 0.01:
                sweep = 2 * math.pi
            turn = 1 if code == 3 else 0  # the picture has Y upward, so 1 is counter-clockwise
            if sweep > math.pi:  # in two halves: SVG draws no full turn
                m = a + (sweep / 2 if code == 3 else -sweep / 2)
                d.append(f"A{radius:.3f} {radius:.3f} 0 0 {turn} "
                         f"{x + i + radius * math.cos(m):.3f} {y + j + radius * math.sin(m):.3f}")
            d.append(f"A{radius:.3f} {radius:.3f} 0 0 {turn} {ex:.3f} {ey:.3f}")
        x, y = ex, ey
    return "".join(d)


def split_lead(start, moves):
    """Lead-in moves, start of the contour, contour moves: a contour without lead-out ends where its lead-in met it."""
    end = moves[-1][1:3]
    for n, move in enumerate(moves[:-1]):
        if math.dist(move[1:3], end) < 0.01:
            return moves[:n + 1], end, moves[n + 1:]
    return [], start, moves


def main():
    program, width, height = sys.argv[1], float(sys.argv[2]), float(sys.argv[3])
    rapids, cuts = read_cuts(program)
    leads, contours, pierces = [], [], []
    for start, moves in cuts:
        lead, meets, contour = split_lead(start, moves)
        leads.append(svg_path(start, lead) if lead else "")
        contours.append(svg_path(meets, contour))
        pierces.append(f'<circle cx="{start[0]:.3f}" cy="{start[1]:.3f}" r="1.6"/>')
    jumps = "".join(f"M{a[0]:.3f} {a[1]:.3f}L{b[0]:.3f} {b[1]:.3f}" for a, b in rapids)
    print(f'''<svg xmlns="http://www.w3.org/2000/svg" viewBox="-8 -8 {width + 16:g} {height + 16:g}" width="800">
<rect x="-8" y="-8" width="{width + 16:g}" height="{height + 16:g}" fill="#ffffff"/>
<g transform="translate(0 {height:g}) scale(1 -1)" fill="none" stroke-linecap="round" stroke-linejoin="round">
<rect width="{width:g}" height="{height:g}" fill="#eef1f4" stroke="#9aa5b1"/>
<path d="{jumps}" stroke="#9aa5b1" stroke-width="0.7" stroke-dasharray="3 3"/>
<path d="{"".join(contours)}" stroke="#1f3a5f" stroke-width="1.4"/>
<path d="{"".join(leads)}" stroke="#d9480f" stroke-width="1.4"/>
<g fill="#d9480f">{"".join(pierces)}</g>
</g>
</svg>''')


if __name__ == "__main__":
    main()
