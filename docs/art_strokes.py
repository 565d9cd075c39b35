"""The hand that draws the artwork: colours, strokes, arrows and the things that return in many pictures, as SVG text.

Keys stand on a grid of 48 with strokes of 2.6, tabs and signs on a grid of 24 with strokes of 2: slate outlines, blue
parts (a darker blue for a print), orange for what a key moves, green for a lead-in and for yes, red for stop and delete. y runs downward, angles
are degrees and run counter-clockwise on the screen.
"""
import math

INK = "#26343f"
PAPER = "#ffffff"
PART = "#8fbdea"
GHOST_FILL = "#dfe0dc"
GHOST_INK = "#99a1a4"
STEEL = "#76858f"
PRINT = "#2f6ca8"
MOVE = "#dd6000"
LEAD = "#12863a"
STOP = "#c81e1e"
FOCUS = "#ffe84a"

KEY_GRID = 48
KEY_STROKE = 2.6
TAB_GRID = 24
TAB_STROKE = 2
HALO = 2.6  # white border that keeps a moving thing apart from what lies under it
RADIUS = 2.5  # of the corners of sheets, boxes and tiles


# --- strokes ------------------------------------------------------------------------------------------------

def number(value):
    return f"{value:.2f}".rstrip("0").rstrip(".") if value else "0"


def style(fill, ink, width):
    parts = [f'fill="{fill}"']
    if ink != "none":
        parts.append(f'stroke="{ink}" stroke-width="{number(width)}" stroke-linecap="round" stroke-linejoin="round"')
    return " ".join(parts)


def path(d, fill="none", ink=INK, width=KEY_STROKE):
    return f'<path d="{d}" {style(fill, ink, width)}/>'


def points(*xy):
    return " ".join(f"{'L' if i else 'M'}{number(x)} {number(y)}" for i, (x, y) in enumerate(xy))


def line(*xy, ink=INK, width=KEY_STROKE):
    return path(points(*xy), ink=ink, width=width)


def polygon(*xy, fill="none", ink=INK, width=KEY_STROKE):
    return path(points(*xy) + " Z", fill, ink, width)


def box(x, y, w, h, fill=PAPER, ink=INK, width=KEY_STROKE, radius=RADIUS):
    return (f'<rect x="{number(x)}" y="{number(y)}" width="{number(w)}" height="{number(h)}" rx="{number(radius)}" '
            f'{style(fill, ink, width)}/>')


def ring(x, y, r, fill="none", ink=INK, width=KEY_STROKE):
    return f'<circle cx="{number(x)}" cy="{number(y)}" r="{number(r)}" {style(fill, ink, width)}/>'


def dot(x, y, r=2.6, fill=INK):
    return ring(x, y, r, fill, "none")


def group(transform, *parts):
    return f'<g transform="{transform}">' + "".join(parts) + "</g>"


def on_circle(x, y, r, angle):
    return x + r * math.cos(math.radians(angle)), y - r * math.sin(math.radians(angle))


def arc_d(x, y, r, start, end):
    """Path data of an arc about (x, y); counter-clockwise when end is above start."""
    x1, y1 = on_circle(x, y, r, start)
    x2, y2 = on_circle(x, y, r, end)
    far = int(abs(end - start) > 180)
    return (f"M{number(x1)} {number(y1)} A{number(r)} {number(r)} 0 {far} {int(end < start)} "
            f"{number(x2)} {number(y2)}")


# --- arrows -------------------------------------------------------------------------------------------------

def head(x, y, angle, size, ink):
    """A filled arrow head whose tip stands at (x, y) and points along `angle`."""
    left = on_circle(x, y, size, angle + 180 - 38)
    right = on_circle(x, y, size, angle + 180 + 38)
    return polygon((x, y), left, right, fill=ink, ink=ink, width=1.6)


def with_halo(d, tip, angle, size, ink, width, halo=HALO):
    left = on_circle(*tip, size, angle + 180 - 38)
    right = on_circle(*tip, size, angle + 180 + 38)
    ground = (path(d, ink=PAPER, width=width + halo)
              + polygon(tip, left, right, fill=PAPER, ink=PAPER, width=1.6 + halo))
    return ground + path(d, ink=ink, width=width) + head(*tip, angle, size, ink)


def arrow(*xy, ink=MOVE, size=10, width=4, halo=HALO):
    """An arrow through the points; its tip is the last of them."""
    (x1, y1), (x2, y2) = xy[-2], xy[-1]
    angle = math.degrees(math.atan2(y1 - y2, x2 - x1))
    neck = on_circle(x2, y2, size * 0.75, angle + 180)
    return with_halo(points(*xy[:-1], neck), (x2, y2), angle, size, ink, width, halo)


def arc_arrow(x, y, r, start, end, ink=MOVE, size=10, width=4):
    """An arrow along an arc about (x, y), its tip at the angle `end`."""
    sense = 1 if end > start else -1
    lean = math.degrees(size * 0.75 / r)
    tip = on_circle(x, y, r, end)
    shaft = arc_d(x, y, r, start, end - sense * lean)
    return with_halo(shaft, tip, end + sense * 90 - sense * lean / 2, size, ink, width)


# --- things -------------------------------------------------------------------------------------------------

def bracket(x, y, size, ghost=False, flip_x=False, flip_y=False, width=KEY_STROKE):
    """The part: an upright bracket with a hole, in a box of `size` whose top left corner is (x, y)."""
    fill, ink = (GHOST_FILL, GHOST_INK) if ghost else (PART, INK)

    def place(u, v):
        return x + size * (1 - u if flip_x else u), y + size * (1 - v if flip_y else v)

    outline = [(0.06, 0), (0.5, 0), (0.5, 0.52), (0.94, 0.52), (0.94, 1), (0.06, 1)]
    hole = place(0.28, 0.26)
    return (polygon(*(place(u, v) for u, v in outline), fill=fill, ink=ink, width=width)
            + dot(*hole, max(1.5, size * 0.085), ink))


def tile(x, y, w, h, ghost=False, width=KEY_STROKE):
    return box(x, y, w, h, GHOST_FILL if ghost else PART, GHOST_INK if ghost else INK, width)


def glass(x, y, r, inside=""):
    """A magnifying glass, its handle to the lower right."""
    x1, y1 = on_circle(x, y, r + 1, -45)
    x2, y2 = on_circle(x, y, r + 13, -45)
    return line((x1, y1), (x2, y2), width=6) + ring(x, y, r, PAPER, INK, 3.2) + inside


def tick(x, y, size, ink=LEAD, width=5):
    xy = ((x - size * 0.5, y), (x - size * 0.12, y + size * 0.38), (x + size * 0.5, y - size * 0.42))
    return line(*xy, ink=PAPER, width=width + HALO) + line(*xy, ink=ink, width=width)


def cross(x, y, size, ink=STOP, width=5):
    h = size / 2
    strokes = ((x - h, y - h), (x + h, y + h)), ((x - h, y + h), (x + h, y - h))
    return ("".join(line(*s, ink=PAPER, width=width + HALO) for s in strokes)
            + "".join(line(*s, ink=ink, width=width) for s in strokes))


def page(x, y, w, h, fill=PAPER, ink=INK, fold=9, width=KEY_STROKE):
    """A document with a folded corner."""
    outline = (x, y), (x + w - fold, y), (x + w, y + fold), (x + w, y + h), (x, y + h)
    return (polygon(*outline, fill=fill, ink=ink, width=width)
            + line((x + w - fold, y), (x + w - fold, y + fold), (x + w, y + fold), ink=ink, width=width))


def rows(x, y, widths, pitch, ink=INK, width=KEY_STROKE):
    return "".join(line((x, y + i * pitch), (x + w, y + i * pitch), ink=ink, width=width)
                   for i, w in enumerate(widths))


def folder(x, y, w, h, ink=INK, width=KEY_STROKE, fill=FOCUS):
    """An open folder: back, and a leaning front."""
    back = polygon((x, y + h), (x, y), (x + w * 0.34, y), (x + w * 0.44, y + h * 0.18), (x + w * 0.86, y + h * 0.18),
                   (x + w * 0.86, y + h), fill=PAPER, ink=ink, width=width)
    front = polygon((x, y + h), (x + w * 0.18, y + h * 0.45), (x + w, y + h * 0.45), (x + w * 0.86, y + h),
                    fill=fill, ink=ink, width=width)
    return back + front


def disk(x, y, s, width=KEY_STROKE):
    """A diskette, the sign of saving."""
    c = s * 0.2
    body = polygon((x, y), (x + s - c, y), (x + s, y + c), (x + s, y + s), (x, y + s), fill=PART, width=width)
    shutter = polygon((x + s * 0.27, y), (x + s * 0.27, y + s * 0.32), (x + s * 0.69, y + s * 0.32),
                      (x + s * 0.69, y), fill=PAPER, width=width)
    label = polygon((x + s * 0.2, y + s), (x + s * 0.2, y + s * 0.55), (x + s * 0.8, y + s * 0.55),
                    (x + s * 0.8, y + s), fill=PAPER, width=width)
    return body + shutter + label


def torch(x, y, s=1.0, width=KEY_STROKE):
    """A cutting torch that comes from above, its beam on (x, y)."""
    def p(u, v):
        return x + u * s, y + v * s
    body = polygon(p(-6, -22), p(6, -22), p(6, -13), p(2.5, -8), p(-2.5, -8), p(-6, -13), fill=STEEL, width=width)
    sparks = "".join(line(p(5 * side, -4), p(2.5 * side, -1.5), ink=STOP, width=width * 0.7) for side in (-1, 1))
    return body + line(p(0, -5), p(0, 0), ink=STOP, width=width) + sparks


def sheet_of_parts(x, y, w, h, across=3, down=2, width=KEY_STROKE):
    """A sheet nested with parts."""
    gap = 3.4
    inset = 4.2
    tw = (w - 2 * inset - (across - 1) * gap) / across
    th = (h - 2 * inset - (down - 1) * gap) / down
    tiles = "".join(box(x + inset + i * (tw + gap), y + inset + j * (th + gap), tw, th, PART, INK, 1.8, 1)
                    for i in range(across) for j in range(down))
    return box(x, y, w, h, PAPER, INK, width) + tiles


def lead(x, y, ghost=False, scale=1.0, width=3.2):
    """A lead-in that comes from above and runs rightwards into a contour at (x, y), with its pierce point."""
    ink = GHOST_INK if ghost else LEAD
    r = 7 * scale
    top = y - r - 8 * scale
    d = points((x - r, top), (x - r, y - r)) + f" A{number(r)} {number(r)} 0 0 0 {number(x)} {number(y)}"
    return path(d, ink=ink, width=width) + dot(x - r, top, 3.4 * scale, ink)


def star(x, y, r, ink=MOVE, width=4.4):
    ends = [(on_circle(x, y, r, a), on_circle(x, y, r, a + 180)) for a in (90, 30, 150)]
    return ("".join(line(*e, ink=PAPER, width=width + HALO) for e in ends)
            + "".join(line(*e, ink=ink, width=width) for e in ends))


def centred_axis(vertical):
    """A dash-dot line through the middle of the key."""
    dashes = ((3, 10), (14.5, 15.5), (20, 28), (32.5, 33.5), (38, 45))
    across = "".join(line((a, 24), (b, 24), ink=MOVE, width=2.4) for a, b in dashes)
    return group("rotate(90 24 24)", across) if vertical else across
