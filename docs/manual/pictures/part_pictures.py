"""Pictures of parts, leads and nests as SVG files, drawn from the state that korvanta-batch writes."""
import json
import math
import subprocess

OUTLINE = "#26343f"
MATERIAL = "#dbe5ee"
LEAD_IN = "#12863a"
LEAD_OUT = "#dd6000"
RAPID = "#a040a0"
WRONG = "#d01818"
SHEET = "#f4f6f8"
FONT = 13


def state(batch, station, *arguments):
    """What a run of korvanta-batch ends with."""
    run = subprocess.run([batch, "--station", station, *arguments, "--quiet", "--json", "-"],
                         check=True, capture_output=True, text=True)
    return json.loads(run.stdout)


def contours(part):
    """Closed and open profiles: (closed, [(x, y, arc centre x, y, radius or None)], end)."""
    found, moves = [], []
    for element in part["ElementTable"]:
        if element["Kind"] in (3, 9):
            found.append((element["GeoB"] != 0.0, moves, (element["StartX"], element["StartY"])))
            moves = []
        else:
            arc = (element["GeoA"], element["GeoB"], element["GeoC"]) if element["Kind"] == 2 else None
            moves.append((element["StartX"], element["StartY"], arc))
    return found


class Panel:
    """A window into the world, `width` pixels wide; Y grows upward. (left, low) to (right, high) is what it shows."""

    def __init__(self, window, width, caption=""):
        self.left, self.low, right, self.high = window
        self.scale = width / (right - self.left)
        self.width = width
        self.height = (self.high - self.low) * self.scale
        self.caption = caption
        self.items = []

    def at(self, x, y):
        return (x - self.left) * self.scale, (self.high - y) * self.scale

    def point(self, x, y):
        return "%.2f %.2f" % self.at(x, y)

    def way(self, moves, end):
        """Path data of moves that run on to `end`."""
        data = "M" + self.point(moves[0][0], moves[0][1])
        places = [(m[0], m[1]) for m in moves[1:]] + [end]
        for (x, y, arc), (to_x, to_y) in zip(moves, places):
            data += self.arc(x, y, arc, to_x, to_y) if arc else "L" + self.point(to_x, to_y)
        return data

    def arc(self, x, y, arc, to_x, to_y):
        cx, cy, radius = arc
        start = math.atan2(y - cy, x - cx)
        end = math.atan2(to_y - cy, to_x - cx)
        turn = (end - start) % (2 * math.pi) if radius > 0 else (start - end) % (2 * math.pi)
        if math.hypot(to_x - x, to_y - y) < 0.01:
            turn = 2 * math.pi
        r = abs(radius)
        middle = start + math.copysign(turn / 2, radius)
        sweep = 0 if radius > 0 else 1
        size = "A%.2f %.2f 0 0 %d " % (r * self.scale, r * self.scale, sweep)
        return size + self.point(cx + r * math.cos(middle), cy + r * math.sin(middle)) + size + self.point(to_x, to_y)

    def path(self, data, colour, width=1.6, dash="", fill="none"):
        dashes = ' stroke-dasharray="%s"' % dash if dash else ""
        self.items.append('<path d="%s" fill="%s" fill-rule="evenodd" stroke="%s" stroke-width="%s"%s/>'
                          % (data, fill, colour, width, dashes))

    def line(self, x1, y1, x2, y2, colour=OUTLINE, width=1.2, dash=""):
        self.path("M%sL%s" % (self.point(x1, y1), self.point(x2, y2)), colour, width, dash)

    def dot(self, x, y, colour, radius=3.2):
        px, py = self.at(x, y)
        self.items.append('<circle cx="%.2f" cy="%.2f" r="%s" fill="%s"/>' % (px, py, radius, colour))

    def cross(self, x, y, colour, arm=6):
        px, py = self.at(x, y)
        self.items.append('<path d="M%.2f %.2fh%dM%.2f %.2fv%d" stroke="%s" stroke-width="1.6"/>'
                          % (px - arm, py, 2 * arm, px, py - arm, 2 * arm, colour))

    def head(self, x, y, angle, colour, size=9):
        """An arrow head whose tip is at (x, y); the angle counts in the world."""
        px, py = self.at(x, y)
        corners = []
        for turn in (math.pi - 0.36, math.pi + 0.36):
            corners.append("%.2f %.2f" % (px + size * math.cos(angle + turn), py - size * math.sin(angle + turn)))
        self.items.append('<path d="M%.2f %.2fL%s L%sZ" fill="%s"/>' % (px, py, corners[0], corners[1], colour))

    def text(self, x, y, words, colour=OUTLINE, size=FONT, anchor="middle", weight="normal", dx=0, dy=0):
        px, py = self.at(x, y)
        self.items.append('<text x="%.2f" y="%.2f" font-size="%d" text-anchor="%s" font-weight="%s" fill="%s">%s</text>'
                          % (px + dx, py + dy, size, anchor, weight, colour, words))

    def measure(self, x1, y1, x2, y2, words, colour, dx=0, dy=0, inside=True):
        """A dimension with its heads at both ends and its words beside the middle."""
        self.line(x1, y1, x2, y2, colour, 1)
        angle = math.atan2(y2 - y1, x2 - x1)
        self.head(x1, y1, angle + math.pi, colour, 7)
        self.head(x2, y2, angle, colour, 7)
        self.text((x1 + x2) / 2, (y1 + y2) / 2, words, colour, 15, weight="bold", dx=dx, dy=dy)

    def part(self, part, x=0.0, y=0.0, fill=MATERIAL, width=1.6):
        """Material and contours; a shifted copy for nests."""
        all_ways, open_ways = "", []
        for closed, moves, end in contours(part):
            shifted = [(mx + x, my + y, (a[0] + x, a[1] + y, a[2]) if a else None) for mx, my, a in moves]
            data = self.way(shifted, (end[0] + x, end[1] + y))
            if closed:
                all_ways += data + "Z"
            else:
                open_ways.append(data)
        if all_ways:
            self.path(all_ways, OUTLINE, width, fill=fill)
        for data in open_ways:
            self.path(data, OUTLINE, width)
        for point in part["MarkPoints"]:
            self.cross(point[0] + x, point[1] + y, OUTLINE, 4)

    def leads(self, part, profiles=None, wrong=(), x=0.0, y=0.0, width=2.2):
        """Leads and pierce points of the profiles (numbers from 1; all without a list)."""
        for number, cut in enumerate(part["CutMoves"], 1):
            if profiles is not None and number not in profiles:
                continue
            moves = cut["moves"]
            for phase, colour in ((1, LEAD_IN), (2, LEAD_OUT)):
                colour = WRONG if phase == 1 and number in wrong else colour
                for move, after in zip(moves, moves[1:]):
                    if move["Phase"] != phase or move["Kind"] == 3:
                        continue
                    arc = (move["CentreX"] + x, move["CentreY"] + y, move["Radius"]) if move["Kind"] == 2 else None
                    self.path(self.way([(move["X"] + x, move["Y"] + y, arc)], (after["X"] + x, after["Y"] + y)),
                              colour, width)
            self.dot(moves[0]["X"] + x, moves[0]["Y"] + y, WRONG if number in wrong else LEAD_IN)

    def travel(self, part, number, share=0.5, colour=OUTLINE, element=None):
        """An arrow head along the cut, at a share of one of the profile's elements (the longest by default)."""
        drawn = contours(part)[number - 1]
        moves, end = drawn[1], drawn[2]
        ends = [(m[0], m[1]) for m in moves[1:]] + [end]
        lengths = [math.hypot(b[0] - a[0], b[1] - a[1]) if not a[2] else 2 * abs(a[2][2]) for a, b in zip(moves, ends)]
        which = lengths.index(max(lengths)) if element is None else element
        (x, y, arc), (to_x, to_y) = moves[which], ends[which]
        if arc:
            cx, cy, radius = arc
            start = math.atan2(y - cy, x - cx)
            turn = (math.atan2(to_y - cy, to_x - cx) - start) % (2 * math.pi)
            if math.hypot(to_x - x, to_y - y) < 0.01:
                turn = 2 * math.pi
            elif radius < 0:
                turn = 2 * math.pi - turn
            angle = start + math.copysign(turn * share, radius)
            self.head(cx + abs(radius) * math.cos(angle), cy + abs(radius) * math.sin(angle),
                      angle + math.copysign(math.pi / 2, radius), colour)
        else:
            self.head(x + (to_x - x) * share, y + (to_y - y) * share, math.atan2(to_y - y, to_x - x), colour)


def write(path, panels, columns, gap=16):
    """Panels in rows, captions below them."""
    rows = [panels[i:i + columns] for i in range(0, len(panels), columns)]
    below = {True: FONT + 10, False: 0}
    total_width = max(sum(p.width for p in row) + gap * (len(row) + 1) for row in rows)
    body, top = "", gap
    for row in rows:
        height = max(p.height for p in row)
        left = gap
        for panel in row:
            body += ('<svg x="%.1f" y="%.1f" width="%.1f" height="%.1f">%s</svg>\n'
                     % (left, top, panel.width, panel.height, "".join(panel.items)))
            if panel.caption:
                body += ('<text x="%.1f" y="%.1f" font-size="%d" text-anchor="middle" fill="%s">%s</text>\n'
                         % (left + panel.width / 2, top + height + FONT + 4, FONT, OUTLINE, panel.caption))
            left += panel.width + gap
        top += height + below[any(p.caption for p in row)] + gap
    with open(path, "w", encoding="utf-8") as file:
        file.write('<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" font-family="sans-serif">\n'
                   '<rect width="100%%" height="100%%" fill="white"/>\n%s</svg>\n' % (total_width, top, body))
