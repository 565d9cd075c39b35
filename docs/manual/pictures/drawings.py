#!/usr/bin/env python3
"""Pictures of the chapter on drawings and programs. Usage: drawings.py KORVANTA-BATCH STATION FOLDER"""
import sys

from part_pictures import LEAD_IN, OUTLINE, RAPID, WRONG, Panel, contours, state, write

batch, station, folder = sys.argv[1:4]
NO_LEADS = ["--set", "LeadIn : A=0", "--set", "LeadIn : B=0", "--key", "CopyLeads"]


def run(*arguments):
    return state(batch, station, *arguments)


def drawing(name, entities, blocks=""):
    """A DXF file of the words of its entities."""
    words = ["0", "SECTION", "2", "BLOCKS", *blocks.split(), "0", "ENDSEC"] if blocks else []
    words += ["0", "SECTION", "2", "ENTITIES", *entities.split(), "0", "ENDSEC", "0", "EOF"]
    with open("%s/DXF/%s" % (station, name), "w", encoding="ascii") as file:
        file.write("\n".join(words) + "\n")


def plate(gap=0.0):
    """A plate of 100 x 50 whose last line ends so far from the first."""
    return ("0 LINE 10 0 20 0 11 100 21 0 0 LINE 10 100 20 0 11 100 21 50 0 LINE 10 100 20 50 11 0 21 50 "
            "0 LINE 10 0 20 50 11 0 21 %s " % gap)


def order():
    part = run("BRACKET.dxf", "--set", "Move Step=1", "--set", "LeadIn : A=3", "--set", "LeadIn : B=1.5",
               "--key", "CopyLeads")
    panel = Panel((-12, -10, 152, 100), 640)
    panel.part(part)
    panel.leads(part)
    for number, (_, moves, _) in enumerate(contours(part), 1):
        panel.travel(part, number, 0.6)
        xs, ys = [m[0] for m in moves], [m[1] for m in moves]
        if len(moves) == 1:
            xs, ys = [moves[0][2][0]], [moves[0][2][1]]
        x, y = (min(xs) + max(xs)) / 2, (min(ys) + max(ys)) / 2
        if number == part["ProfileCount"]:
            x, y = x, 6
        panel.text(x, y, str(number), RAPID, 17, weight="bold", dy=-26 if len(moves) == 1 else 6)
    for x, y in part["MarkPoints"]:
        panel.text(x, y, "mark", OUTLINE, 12, anchor="start", dx=8, dy=4)
    write(folder + "/drawing-order.svg", [panel], 1)


def gaps():
    panels = []
    for gap, caption in ((0.009, "ends 0.009 apart: closed"), (0.011, "ends 0.011 apart: open")):
        drawing("GAP.dxf", plate(gap))
        part = run("GAP.dxf", "--set", "Move Step=1")
        panel = Panel((-24, -10, 110, 60), 320, caption)
        panel.part(part)
        panel.leads(part)
        panel.travel(part, 1, 0.5, element=0)
        if not contours(part)[0][0]:
            x, y = part["Import"]["Open"][0]["X"], part["Import"]["Open"][0]["Y"]
            panel.dot(x, y, WRONG, 4)
            panel.text(x, y, "open here", WRONG, anchor="start", dx=9, dy=-8)
        panels.append(panel)
    write(folder + "/drawing-gap.svg", panels, 2)


def curves():
    drawing("CURVE.dxf", "0 ELLIPSE 10 0 20 0 11 30 21 0 40 0.5")
    part = run("CURVE.dxf", *NO_LEADS)
    moves = contours(part)[0][1]
    whole = Panel((-3, -3, 63, 33), 300, "an ellipse of 60 x 30: %d chords" % len(moves))
    whole.part(part)
    near = Panel((-1, 12.5, 8, 17.5), 320, "its left end: the ends of the chords")
    near.part(part, width=1)
    for x, y, _ in moves:
        near.dot(x, y, LEAD_IN, 3)
    write(folder + "/drawing-curves.svg", [whole, near], 2)


def blocks():
    drawing("BLOCKS.dxf",
            plate() + "0 INSERT 2 KEY 10 20 20 25 0 INSERT 2 KEY 10 50 20 25 50 45 "
            "0 INSERT 2 KEY 10 80 20 14 41 0.6 42 0.6 71 2 45 22",
            "0 BLOCK 2 KEY 10 0 20 0 0 CIRCLE 10 0 20 0 40 6 0 LWPOLYLINE 90 4 70 1 10 -2 20 8 10 2 20 8 10 2 20 12 "
            "10 -2 20 12 0 ENDBLK")
    part = run("BLOCKS.dxf", *NO_LEADS)
    panel = Panel((-6, -6, 106, 56), 420, "one block: as drawn, turned by 45, twice at 0.6")
    panel.part(part)
    write(folder + "/drawing-blocks.svg", [panel], 1)


def programs():
    lines = {"G1 G41 Y60, or G41 alone before it": ["G00 X10 Y10", "G01 G41 Y60", "G01 X110", "Y10", "X10"],
             "G41 G1 Y60: the move is lost": ["G00 X10 Y10", "G41 G01 Y60", "G01 X110", "Y10", "X10"]}
    panels = []
    for caption, text in lines.items():
        with open(station + "/PROGRAM/READ.nc", "w", encoding="ascii") as file:
            file.write("\n".join(text) + "\n")
        part = run("READ.nc", *NO_LEADS)
        panel = Panel((-16, -12, 116, 64), 320, caption)
        if len(contours(part)[0][1]) == 3:
            panel.line(0, 0, 0, 50, WRONG, 1.6, "5 4")
        panel.part(part)
        for element in range(len(contours(part)[0][1])):
            panel.travel(part, 1, 0.5, element=element)
        panels.append(panel)
    write(folder + "/program-lost.svg", panels, 2)


order()
gaps()
curves()
blocks()
programs()
