#!/usr/bin/env python3
"""Draws the artwork of the window: every src/qt/art/*.svg and the list of them, art.qrc; and docs/images/logo.svg.

The same little bracket stands wherever a part is meant, a page with it for a job. No text; only elements that QtSvg
draws: path, rect, circle, g.
"""
import pathlib

from art_strokes import (
    INK, PAPER, PART, GHOST_FILL, GHOST_INK, STEEL, PRINT, MOVE, LEAD, STOP, FOCUS, KEY_GRID, TAB_GRID, TAB_STROKE,
    HALO, arc_arrow, arrow, box, bracket, centred_axis, cross, disk, dot, folder, glass, group, head, lead,
    line, number, on_circle, page, path, points, polygon, ring, rows, sheet_of_parts, star, tick, tile, torch,
)

ROOT = pathlib.Path(__file__).resolve().parent.parent
ART = ROOT / "src" / "qt" / "art"
LOGO = ROOT / "docs" / "images"


# --- keys ---------------------------------------------------------------------------------------------------

def tabs_key(forward):
    """A card file whose middle tab is in front; the arrow goes to the tab after it or before it."""
    card = (box(4, 8, 16, 14, GHOST_FILL) + box(28, 8, 16, 14, GHOST_FILL) + box(16, 8, 16, 14, PART)
            + path("M4 44 L4 19 L44 19 L44 44 Z", PAPER))
    x1, x2 = (10, 38) if forward else (38, 10)
    return card + arrow((x1, 31.5), (x2, 31.5), size=14, width=6)


def list_key(dx, dy):
    """Icons of a list; the mark goes from one to its neighbour."""
    parts = []
    near, far, side = 4.5, 26.5, 17
    cells = {(0, 0): (near, near), (1, 0): (far, near), (0, 1): (near, far), (1, 1): (far, far)}
    start = (0 if dx >= 0 else 1, 0 if dy >= 0 else 1)
    if dx:
        start = (start[0], 0)
    end = (start[0] + dx, start[1] + dy)
    for cell, (x, y) in cells.items():
        parts.append(box(x, y, side, side, PART if cell == end else PAPER, INK if cell == end else GHOST_INK))
    sx, sy = (c + side / 2 for c in cells[start])
    ex, ey = (c + side / 2 for c in cells[end])
    return "".join(parts) + arrow((sx - dx * 3, sy - dy * 3), (ex + dx * 4, ey + dy * 4), size=13, width=5)


def host_key():
    """The program goes to the control: a cabinet with a screen and buttons."""
    cabinet = (box(26, 9, 17.5, 35, GHOST_FILL) + box(30, 13.5, 9.5, 9, PART, INK, 2, 1)
               + dot(31.3, 29, 2, LEAD) + dot(38.2, 29, 2, STOP))
    return page(4, 4, 18, 24, fold=7) + rows(8, 15, (9, 6, 9), 4.6, width=2.2) + cabinet + arrow(
        (12, 32), (12, 38), (29, 38), size=11, width=4.4)


def delete_key():
    return page(7, 4, 27, 36) + bracket(12.5, 15, 17) + cross(35, 34, 15, width=5.6)


def leave_key():
    door = (path("M26 6 L6 6 L6 42 L26 42", PAPER) + polygon((6, 6), (18, 11), (18, 46), (6, 42), fill=PART)
            + dot(14.2, 27, 1.7))
    frame = line((26, 6), (26, 13)) + line((26, 35), (26, 42))
    return door + frame + arrow((22, 24), (45, 24), ink=STOP, size=13, width=5.4)


def open_key():
    return folder(3, 9, 41, 30) + tick(30, 29, 24, width=6)


def back_to_nest_key():
    return sheet_of_parts(7, 3.5, 37, 25) + back_arrow()


def back_arrow():
    """The way back to where the work was before."""
    return arc_arrow(25.5, 25, 15.5, -20, -168, size=12, width=4.8)


def back_to_lists_key():
    """The card file with a list in it."""
    card = (box(7, 3.5, 13, 12, PART) + box(20, 3.5, 12, 12, GHOST_FILL) + box(32, 3.5, 12, 12, GHOST_FILL)
            + path("M7 11 L44 11 L44 32 L7 32 Z", PAPER)
            + "".join(line((13, y), (13.01, y), width=4.4) + line((20, y), (38, y)) for y in (17.2, 24.4)))
    return card + back_arrow()


def parameters_picture():
    """The part with its dimensions."""
    return (bracket(16, 3, 28) + line((8, 6), (8, 28), width=2) + head(8, 2.5, 90, 6, INK) + head(8, 31.5, -90, 6, INK)
            + line((21, 39.5), (39, 39.5), width=2) + head(17.5, 39.5, 180, 6, INK) + head(42.5, 39.5, 0, 6, INK))


def cutting_picture():
    """The part, and the torch on its contour."""
    return bracket(4, 14, 31) + torch(30, 28, 1.15)


def screen_key(picture, forward):
    """The next or the previous screen: its picture behind a broad arrow on the side where it lies."""
    if forward:
        return group("translate(1 0.5) scale(0.78)", picture) + arrow((22, 37), (45, 37), size=13, width=6)
    return group("translate(9.5 0.5) scale(0.78)", picture) + arrow((26, 37), (3, 37), size=13, width=6)


def zoom_jump_key():
    """To the magnifying glass and back to the field."""
    field = box(3.5, 32, 41, 12.5, FOCUS) + line((9, 36), (9, 40.5), width=2.2)
    return (glass(29, 12.5, 8.3) + field + arrow((9, 27), (9, 4), size=9.5, width=3.8)
            + arrow((17, 5), (17, 28), size=9.5, width=3.8))


def simulate_key():
    return sheet_of_parts(4, 3.5, 40, 26) + polygon((16, 15), (16, 44), (41, 29.5), fill=LEAD, ink=PAPER, width=3)


def save_key():
    return sheet_of_parts(3, 3, 30, 22) + disk(20, 20, 25)


def zoom_key(plus):
    signs = line((11.5, 19), (26.5, 19), width=5.4)
    if plus:
        signs += line((19, 11.5), (19, 26.5), width=5.4)
    return glass(19, 19, 15.5, signs)


def zoom_move_key(angle):
    """The corners of the zoom frame around its middle, and the way it goes."""
    cx, cy = on_circle(24, 24, 7, angle + 180)
    a, c = 13.5, 6
    corners = "".join(line((cx + sx * a, cy + sy * (a - c)), (cx + sx * a, cy + sy * a),
                           (cx + sx * (a - c), cy + sy * a))
                      for sx in (-1, 1) for sy in (-1, 1))
    return corners + arrow(on_circle(24, 24, 9, angle + 180), on_circle(24, 24, 20.5, angle), size=14, width=5.4)


def zoom_ok_key():
    return glass(19, 19, 15.5) + tick(20, 18.5, 20, width=5.6)


def step_key(plus):
    """The yellow field with the sign."""
    sign = line((14, 24), (34, 24), width=5.4)
    if plus:
        sign += line((24, 14), (24, 34), width=5.4)
    return box(5, 5, 38, 38, FOCUS, radius=5) + sign


def turn_key(left):
    """The part a quarter turn on; the arrow tells the sense."""
    if left:
        return group("rotate(-90 20 31)", bracket(6, 16, 27)) + arc_arrow(21.5, 28, 19, 8, 96, size=12, width=4.8)
    return group("rotate(90 28 31)", bracket(15, 16, 27)) + arc_arrow(26.5, 28, 19, 172, 84, size=12, width=4.8)


def mirror_key(over_x, over_y):
    """The part as it was, pale, and as it comes to lie beyond the axis."""
    s = 18
    near, far, mid = 3, 27, 15
    if not over_x and not over_y:
        return bracket(9, 8, 32)
    if over_x and over_y:
        return (centred_axis(True) + centred_axis(False) + bracket(near, far, s, ghost=True)
                + bracket(far, near, s, flip_x=True, flip_y=True))
    if over_x:
        return centred_axis(True) + bracket(near, mid, s, ghost=True) + bracket(far, mid, s, flip_x=True)
    return centred_axis(False) + bracket(mid, near, s, ghost=True) + bracket(mid, far, s, flip_y=True)


def edge(y):
    """The upper edge of a part that fills the key from side to side."""
    return box(3, y, 42, 45 - y, PART)


def lead_key(forward):
    ghost, now = (16, 40) if forward else (40, 16)
    x1, x2 = (8, 41) if forward else (40, 7)
    return edge(27) + lead(ghost, 27, ghost=True) + lead(now, 27) + arrow((x1, 36.5), (x2, 36.5), size=11, width=4.6)


def lead_next_key():
    """The lead goes around the corner, on to the next element."""
    part = box(3, 23, 25, 22, PART) + dot(28, 23, 3.4)
    return (part + lead(14, 23, ghost=True, scale=0.9) + group("rotate(90 28 41)", lead(28, 41, scale=0.9))
            + arc_arrow(22, 28, 18.5, 108, 14, size=10.5, width=4.2))


def nest_key(kind):
    """A grid, straight or staggered, and the way from the first copy, at the lower left, to the last."""
    staggered = kind >= 3
    by_rows = kind in (1, 3)
    pitch, side = 15, 12

    def centre(column, row):
        shift = pitch / 2 if staggered and row % 2 == 0 else 0
        return 9 + (column - 1) * pitch + shift, 39 - (row - 1) * pitch

    def fits(column, row):
        return not staggered or row % 2 == 1 or column < 3

    way = []
    for first in (1, 2, 3):
        run = (1, 2, 3) if first % 2 else (3, 2, 1)
        cells = [(second, first) if by_rows else (first, second) for second in run]
        way += [centre(*cell) for cell in cells if fits(*cell)]
    tiles = "".join(tile(x - side / 2, y - side / 2, side, side, width=1.4) for x, y in way)
    return tiles + arrow(*way, size=9.5, width=3, halo=1.6) + dot(*way[0], 3.6, MOVE)


def sim_key(run):
    sign = polygon((16, 12), (16, 36), (36, 24), fill=LEAD, ink=LEAD) if run else box(14, 14, 20, 20, STOP, STOP)
    return ring(24, 24, 20, PAPER) + sign


def path_change_key():
    """A closed contour with the senses of cut that change places."""
    return (box(15, 15, 18, 18, PART) + arc_arrow(24, 24, 18.5, 160, 20, size=11, width=4)
            + arc_arrow(24, 24, 18.5, -160, -20, ink=INK, size=11, width=4))


def path_cursor(x, y):
    """The mark of the point where the program starts."""
    r = 6.5
    arm = r + 4.5
    return (ring(x, y, r, PAPER, PAPER, 3 + HALO) + ring(x, y, r, PAPER, STOP, 3)
            + line((x - arm, y), (x + arm, y), ink=STOP, width=2.2)
            + line((x, y - arm), (x, y + arm), ink=STOP, width=2.2))


def path_key(forward):
    """The cursor on the lower edge of a part; the cut runs leftwards there, away from its lead-in."""
    part = box(3, 3, 42, 24, PART) + group("rotate(180 37 27)", lead(37, 27, scale=0.85))
    x1, x2 = (39, 8) if forward else (9, 40)
    return part + path_cursor(18, 27) + arrow((x1, 11.5), (x2, 11.5), size=11, width=4.6)


def count_key():
    """So many parts side by side."""
    tiles = "".join(box(7.7 + 11.6 * i, 29.5, 9.4, 10, PART, INK, 2, 1.5) for i in range(3))
    return box(3, 25, 42, 19, PAPER) + tiles + star(24, 13, 8.2)


def copy_leads_key():
    """The leads of one profile become those of the others."""
    def profile(x, fill):
        return box(x, 30, 11, 15, fill) + group(f"translate({x + 7.5} 30) scale(0.78)", lead(0, 0, width=3.8))

    profiles = profile(3, PART) + profile(18.5, PAPER) + profile(34, PAPER)
    return profiles + arrow((6, 10), (42.5, 10), size=11, width=4.6)


def keys():
    return {
        "key-next-tab": tabs_key(True),
        "key-previous-tab": tabs_key(False),
        "key-list-right": list_key(1, 0),
        "key-list-left": list_key(-1, 0),
        "key-list-down": list_key(0, 1),
        "key-list-up": list_key(0, -1),
        "key-hand-to-host": host_key(),
        "key-delete-job": delete_key(),
        "key-leave-program": leave_key(),
        "key-open": open_key(),
        "key-back-to-nest": back_to_nest_key(),
        "key-back-to-lists": back_to_lists_key(),
        "key-next-cutting": screen_key(cutting_picture(), True),
        "key-previous-cutting": screen_key(cutting_picture(), False),
        "key-previous-parameters": screen_key(parameters_picture(), False),
        "key-next-nesting": screen_key(sheet_of_parts(4, 6, 40, 30), True),
        "key-zoom-jump": zoom_jump_key(),
        "key-simulate": simulate_key(),
        "key-finish-save": save_key(),
        "key-zoom-in": zoom_key(True),
        "key-zoom-out": zoom_key(False),
        "key-zoom-right": zoom_move_key(0),
        "key-zoom-left": zoom_move_key(180),
        "key-zoom-down": zoom_move_key(-90),
        "key-zoom-up": zoom_move_key(90),
        "key-plus": step_key(True),
        "key-minus": step_key(False),
        "key-turn-left": turn_key(True),
        "key-turn-right": turn_key(False),
        "key-mirror-none": mirror_key(False, False),
        "key-mirror-x": mirror_key(True, False),
        "key-mirror-y": mirror_key(False, True),
        "key-mirror-xy": mirror_key(True, True),
        "key-zoom-ok": zoom_ok_key(),
        "key-lead-forward": lead_key(True),
        "key-lead-back": lead_key(False),
        "key-lead-next-element": lead_next_key(),
        "key-nest-rows": nest_key(1),
        "key-nest-columns": nest_key(2),
        "key-nest-staggered-rows": nest_key(3),
        "key-nest-staggered-columns": nest_key(4),
        "key-sim-start": sim_key(True),
        "key-sim-stop": sim_key(False),
        "key-path-change": path_change_key(),
        "key-path-forward": path_key(True),
        "key-path-back": path_key(False),
        "key-count": count_key(),
        "key-copy-leads": copy_leads_key(),
    }


# --- tabs, signs, icons ---------------------------------------------------------------------------------------

def tab_pictures():
    """By name, a drawing in one fill colour: pale on a tab behind, blue on the tab in front."""
    w = TAB_STROKE

    def programs(fill):
        return page(4, 2, 16, 20, fill, fold=5, width=w) + polygon(
            (8, 10), (11.5, 10), (11.5, 14), (16, 14), (16, 18), (8, 18), fill=PAPER, width=1.6)

    def rectangular(fill):
        plate = polygon((3, 5), (21, 5), (21, 14), (15, 14), (15, 19), (3, 19), fill=fill, width=w)
        return plate + ring(8, 10, 2, PAPER, INK, w)

    def circular(fill):
        return ring(12, 12, 9, fill, INK, w) + ring(12, 12, 4, PAPER, INK, w)

    def holes(fill):
        return (box(3, 3, 18, 18, fill, INK, w, 2)
                + ring(8.5, 8.5, 2, PAPER, INK, w) + ring(8.5, 15.5, 2, PAPER, INK, w)
                + box(14, 7, 3, 10, PAPER, INK, w, 1.5))

    def drawing(fill):
        corners = (4, 20), (4, 9), (20, 4), (20, 20)
        return (path("M4 20 L4 9 A5 5 0 0 1 9 4 L20 4 L20 20 Z", fill, INK, w)
                + "".join(box(x - 2, y - 2, 4, 4, PAPER, MOVE, 1.6, 0) for x, y in corners))

    def program(fill):
        return (page(4, 2, 16, 20, fill, fold=5, width=w) + rows(8, 10, (2, 2, 2), 4, width=w)
                + rows(13, 10, (3, 1, 3), 4, ink=MOVE, width=w))

    def parameters(fill):
        return (polygon((9, 3), (15, 3), (15, 9), (21, 9), (21, 15), (9, 15), fill=fill, width=w)
                + line((4, 3), (4, 15), ink=MOVE, width=w) + line((2, 3), (6, 3), ink=MOVE, width=w)
                + line((2, 15), (6, 15), ink=MOVE, width=w) + line((9, 20), (21, 20), ink=MOVE, width=w)
                + line((9, 18), (9, 22), ink=MOVE, width=w) + line((21, 18), (21, 22), ink=MOVE, width=w))

    def cutting(fill):
        return (path("M2 17 L22 17 L22 22 L2 22 Z", fill, INK, w)
                + polygon((8, 2), (16, 2), (16, 6), (13, 9), (11, 9), (8, 6), fill=STEEL, width=w)
                + line((12, 11), (12, 15), ink=STOP, width=w) + line((8, 11), (8.5, 12), ink=STOP, width=1.6)
                + line((16, 11), (15.5, 12), ink=STOP, width=1.6))

    def nesting(fill):
        return (box(2, 3, 20, 18, PAPER, INK, w, 2)
                + "".join(box(x, y, 3, 4, fill, INK, 1.4, 0.5) for x in (5, 10.5, 16) for y in (6.5, 13.5)))

    return {"programs": programs, "rectangular": rectangular, "circular": circular, "holes": holes, "dxf": drawing,
            "iso": program}, {"parameters": parameters, "cutting": cutting, "nesting": nesting}


def small():
    w = TAB_STROKE
    inputs, cams = tab_pictures()
    pictures = {f"tab-{name}": draw(GHOST_FILL) for name, draw in inputs.items()}
    pictures |= {f"tab-{name}-front": draw(PART) for name, draw in inputs.items()}
    pictures |= {f"tab-{name}": draw(PART) for name, draw in cams.items()}
    pictures |= {
        "sign-save": disk(3, 3, 18, width=w),
        "sign-load": folder(2, 4, 20, 16, width=w),
    }
    return pictures


def file_icons():
    """Files of the lists: each kind has an outline of its own, so that 16 pixels are enough to tell it."""
    w = TAB_STROKE
    little = polygon((8, 9), (11.5, 9), (11.5, 14), (16, 14), (16, 18.5), (8, 18.5), fill=PART, width=1.5)
    corners = (4, 20), (4, 4), (13, 4), (20, 11), (20, 20)
    outline = (polygon(*corners, fill=PART, width=w)
               + "".join(box(x - 2.2, y - 2.2, 4.4, 4.4, PAPER, MOVE, 1.7, 0) for x, y in corners))
    blueprint = (box(2, 4, 20, 16, PRINT, INK, w, 1.5)
                 + polygon((6, 8), (11, 8), (11, 12), (14, 12), (14, 16), (6, 16), ink=PAPER, width=1.7)
                 + line((17, 16.2), (18.4, 16.2), ink=PAPER, width=2))
    program = (page(4, 2, 16, 20, fold=5, width=w) + rows(8, 9.5, (1.5, 1.5, 1.5), 4, width=w)
               + rows(12.5, 9.5, (1.5, 3.5, 2.5), 4, ink=MOVE, width=w))
    return {
        "icon-job": page(4, 2, 16, 20, fold=5, width=w) + little,
        "icon-dxf": outline,
        "icon-dwg": blueprint,
        "icon-iso": program,
    }


LETTERS = {  # strokes in a box 6 wide and 8 high
    "A": "M0 8 L3 0 L6 8 M1.2 5.2 L4.8 5.2",
    "B": "M0 8 L0 0 L3 0 A1.9 1.9 0 0 1 3 3.8 L0 3.8 M3 3.8 A2.1 2.1 0 0 1 3 8 L0 8",
    "C": "M6 1.6 A3.4 3.8 0 1 0 6 6.4",
    "D": "M0 0 L2 0 A4 4 0 0 1 2 8 L0 8 Z",
}


def letter(name, x, y, size, ink):
    k = size / 8
    return group(f"translate({number(x - 3 * k)} {number(y - 4 * k)}) scale({number(k)})",
                 path(LETTERS[name], ink=ink, width=1.5))


def lead_help():
    """Lead-in, line A and arc B, and lead-out, arc D and line C, at a contour that is cut from left to right."""
    x, y, r = 60, 58, 24
    contour = box(3, y, 114, 11, PART, INK, 3)
    way_in = f"M{x - r} 9 L{x - r} {y - r} A{r} {r} 0 0 0 {x} {y}"
    lead_in = path(way_in, ink=LEAD, width=4) + dot(x - r, 9, 4.6, LEAD)
    lead_out = path(f"M{x} {y} A{r} {r} 0 0 0 {x + r} {y - r}", ink=MOVE, width=4) + arrow(
        (x + r, y - r), (x + r, 4), size=12, width=4)
    joints = "".join(line((a - 4, y - r), (a + 4, y - r), width=2) for a in (x - r, x + r))
    letters = (letter("A", 23, 21, 14, LEAD) + letter("B", 28, 46.5, 13, LEAD)
               + letter("C", 98, 21, 14, MOVE) + letter("D", 92, 46.5, 13, MOVE))
    return contour + head(106, y, 0, 10, INK) + lead_out + lead_in + joints + dot(x, y, 4) + letters


def application():
    return (box(3, 10, 42, 34, PAPER) + ring(24, 29, 11.5, PART) + ring(24, 29, 4.5, PAPER)
            + torch(35, 23.5, 0.9))


WORD = (  # the strokes of each letter on its base line, 17 high for the low ones, and how wide it is
    ("M0 -26 L0 0 M15 -26 L0 -10 M5.5 -15.8 L16 0", 16),
    ("M17 -8.5 A8.5 8.5 0 1 1 0 -8.5 A8.5 8.5 0 1 1 17 -8.5", 17),
    ("M0 -17 L0 0 M0 -8.5 A8.5 8.5 0 0 1 8.5 -17", 8.5),
    ("M0 -17 L7.5 0 L15 -17", 15),
    ("M17 -8.5 A8.5 8.5 0 1 1 0 -8.5 A8.5 8.5 0 1 1 17 -8.5 M17 -17 L17 0", 17),
    ("M0 -17 L0 0 M0 -9.5 A7.5 7.5 0 0 1 15 -9.5 L15 0", 15),
    ("M4.5 -23 L4.5 -5 A5 5 0 0 0 9.5 0 L11 0 M0 -17 L11 -17", 11),
    ("M17 -8.5 A8.5 8.5 0 1 1 0 -8.5 A8.5 8.5 0 1 1 17 -8.5 M17 -17 L17 0", 17),
)
WORD_GAPS = 5.5, 8.5, 5, 6.5, 9, 6, 6.5, 0  # behind each letter: round and open ones stand closer
WORD_STROKE = 4.2
LOGO_GRID = 232, 52


def logo():
    """The mark of the application, and the name of the program written in strokes."""
    x, letters = 63, ""
    for (strokes, width), gap in zip(WORD, WORD_GAPS):
        letters += group(f"translate({number(x)} 41)", path(strokes, width=WORD_STROKE))
        x += width + gap
    return path(points((0, 0), (LOGO_GRID[0], 0), LOGO_GRID, (0, LOGO_GRID[1])) + " Z", PAPER, "none") + group(
        "translate(2 1.5)", application()) + letters


def write(folder_path, name, grid, content):
    w, h = grid
    svg = f'<svg xmlns="http://www.w3.org/2000/svg" width="{w}" height="{h}" viewBox="0 0 {w} {h}">\n'
    svg += content.replace("/><", "/>\n<").replace("><g", ">\n<g").replace("</g><", "</g>\n<") + "\n</svg>\n"
    (folder_path / f"{name}.svg").write_text(svg, encoding="utf-8")


def main():
    pictures = {name: ((KEY_GRID, KEY_GRID), content) for name, content in keys().items()}
    pictures |= {name: ((TAB_GRID, TAB_GRID), content) for name, content in (small() | file_icons()).items()}
    pictures["lead-help"] = ((120, 72), lead_help())
    pictures["application"] = ((KEY_GRID, KEY_GRID), application())
    for old in ART.glob("*.svg"):
        old.unlink()
    for name, (grid, content) in pictures.items():
        write(ART, name, grid, content)
    write(LOGO, "logo", LOGO_GRID, logo())
    files = "".join(f"    <file>{name}.svg</file>\n" for name in sorted(pictures))
    listing = f'<!DOCTYPE RCC>\n<RCC version="1.0">\n<qresource prefix="/art">\n{files}</qresource>\n</RCC>\n'
    (ART / "art.qrc").write_text(listing, encoding="utf-8")


if __name__ == "__main__":
    main()
