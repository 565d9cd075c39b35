#!/usr/bin/env python3
"""Pictures of the chapter on nesting. Usage: nesting.py KORVANTA-BATCH STATION FOLDER"""
import math
import sys

from part_pictures import LEAD_IN, OUTLINE, RAPID, SHEET, WRONG, Panel, state, write

batch, station, folder = sys.argv[1:4]
NO_LEADS = ["--set", "LeadIn : A=0", "--set", "LeadIn : B=0"]


def run(*arguments):
    return state(batch, station, *arguments)


def fields(**values):
    names = {"X": "X Sheet", "Y": "Y Sheet", "kerf": "Kerf", "gap_x": "X Gap", "gap_y": "Y Gap", "kind": "Nesting"}
    return [word for name, value in values.items() for word in ("--set", "%s=%s" % (names[name], value))]


def sheet_of(part):
    return float(part["TextNesting"][0]), float(part["TextNesting"][1])


def draw_nest(panel, part, leads=False, wrong=()):
    width, height = sheet_of(part)
    corners = ((0, 0), (width, 0), (width, height), (0, height))
    panel.path("M" + "L".join(panel.point(*c) for c in corners) + "Z", OUTLINE, 1.2, fill=SHEET)
    for x, y in part["Nest"]["Copies"]:
        panel.part(part, x, y)
    for x, y in part["Nest"]["Copies"] if leads else ():
        panel.leads(part, None, wrong, x, y)


def draw_order(panel, part):
    half_x, half_y = part["Nest"]["PartSizeX"] / 2, part["Nest"]["PartSizeY"] / 2
    places = [(x + half_x, y + half_y) for x, y in part["Nest"]["Copies"]]
    for (x, y), (to_x, to_y) in zip(places, places[1:]):
        panel.line(x, y, to_x, to_y, RAPID, 1, "4 3")
        angle = math.atan2(to_y - y, to_x - x)
        panel.head((x + to_x) / 2, (y + to_y) / 2, angle, RAPID, 8)
    for number, (x, y) in enumerate(places, 1):
        panel.dot(x, y, "white", 9)
        panel.text(x, y, str(number), OUTLINE, 12, dy=4)


def types():
    panels = []
    for kind, caption in enumerate(("1: rows", "2: columns", "3: staggered rows", "4: staggered columns"), 1):
        part = run("C-01", "--param", "A=80", *NO_LEADS, *fields(gap_x=8, gap_y=8, kerf=1, X=400, Y=300, kind=kind))
        panel = Panel((-6, -6, 406, 306), 320, caption)
        draw_nest(panel, part)
        draw_order(panel, part)
        panels.append(panel)
    write(folder + "/nest-types.svg", panels, 2)


def gaps():
    part = run("R-03", "--param", "A=40", "--param", "B=60", "--param", "X=8", "--param", "Y=8", *NO_LEADS,
               *fields(gap_x=14, gap_y=14, kerf=3, X="*2", Y="*2"))
    width, height = sheet_of(part)
    panel = Panel((-32, -22, width + 8, height + 6), 520)
    draw_nest(panel, part)
    panel.measure(70, 26, 90, 26, "X Gap", LEAD_IN, dy=-24)
    panel.text(80, 26, "+ 2 Kerf", LEAD_IN, 15, weight="bold", dy=-8)
    panel.measure(40, 50, 40, 70, "Y Gap + 2 Kerf", LEAD_IN, dx=66, dy=5)
    panel.line(10, 22, 10, -10, RAPID, 0.8)
    panel.line(0, 0, 0, -10, RAPID, 0.8)
    panel.measure(0, -8, 10, -8, "half", RAPID, dy=20)
    panel.line(26, 10, -10, 10, RAPID, 0.8)
    panel.line(0, 0, -10, 0, RAPID, 0.8)
    panel.measure(-8, 0, -8, 10, "half", RAPID, dx=-24, dy=5)
    panel.text(120, -14, "one column: width + X Gap + 2 Kerf", OUTLINE)
    panel.measure(80, -6, 160, -6, "", OUTLINE)
    write(folder + "/nest-gaps.svg", [panel], 1)


def leads():
    plate = ["R-01", "--param", "A=50", "--param", "B=60", "--param", "R=4"]
    panels = []
    for gap, wrong in ((10, (1,)), (34, ())):
        part = run(*plate, *fields(gap_x=gap, gap_y=gap, X="*2", Y="*1"))
        panel = Panel((-14, -6, 196, 124), 330, "A 10, B 5; gap %d" % gap)
        draw_nest(panel, part, True, wrong)
        panels.append(panel)
    write(folder + "/nest-leads.svg", panels, 2)


def boxes():
    panels = []
    for caption, shape in (("discs: staggered rows fit", ["C-01", "--param", "A=80"]),
                           ("plates: they overlap", ["R-01", "--param", "A=80", "--param", "B=80", "--param", "R=0"])):
        part = run(*shape, *NO_LEADS, *fields(gap_x=6, gap_y=6, X=360, Y=270, kind=3))
        panel = Panel((-6, -6, 366, 276), 320, caption)
        draw_nest(panel, part)
        if shape[0] == "R-01":
            for x, y in part["Nest"]["Copies"]:
                panel.part(part, x, y, "none", 1.2)
        panels.append(panel)
    write(folder + "/nest-staggered.svg", panels, 2)


types()
gaps()
leads()
boxes()
