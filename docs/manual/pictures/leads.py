#!/usr/bin/env python3
"""Pictures of the chapter on leads. Usage: leads.py KORVANTA-BATCH STATION FOLDER"""
import sys

from part_pictures import LEAD_IN, LEAD_OUT, OUTLINE, RAPID, WRONG, Panel, state, write

batch, station, folder = sys.argv[1:4]


def run(*arguments):
    return state(batch, station, *arguments)


def fields(**values):
    names = {"A": "LeadIn : A", "B": "LeadIn : B", "C": "LeadOut : C", "D": "LeadOut : D", "step": "Move Step",
             "profile": "Profile nr.", "angle": "Angle", "mirror": "Mirror", "scale": "Scale"}
    return [word for name, value in values.items() for word in ("--set", "%s=%s" % (names[name], value))]


# The lead stands 60 along the upper edge: past the left side (38) and the corner (1.57).
PLATE = ["R-01", "--param", "A=40", "--param", "B=120", "--param", "R=1"]
TO_TOP = [*fields(step=89.57), "--key", "MoveLeadPlus"]


def letters():
    part = run(*PLATE, *TO_TOP, *fields(A=20, B=12, D=9, C=16))
    panel = Panel((22, 26, 104, 80), 560)
    panel.part(part)
    panel.leads(part)
    panel.travel(part, 1, 0.25, element=2)
    panel.travel(part, 1, 0.85, element=2)
    panel.measure(45, 52, 45, 72, "A", LEAD_IN, dx=-14, dy=5)
    panel.line(49, 72, 43, 72, LEAD_IN, 0.8)
    panel.line(49, 52, 43, 52, LEAD_IN, 0.8)
    panel.measure(61, 52, 49.0, 52, "B", LEAD_IN, dy=-8)
    panel.measure(76, 40, 76, 49, "D", LEAD_OUT, dx=14, dy=5)
    panel.measure(76, 49, 76, 65, "C", LEAD_OUT, dx=14, dy=5)
    panel.line(70, 49, 78, 49, LEAD_OUT, 0.8)
    panel.line(70, 65, 78, 65, LEAD_OUT, 0.8)
    panel.dot(61, 40, OUTLINE, 4)
    panel.text(49, 72, "pierce point", LEAD_IN, dy=-10)
    panel.text(61, 40, "lead point", OUTLINE, dy=20)
    panel.text(96, 62, "scrap", OUTLINE)
    panel.text(96, 32, "part", OUTLINE)
    write(folder + "/lead-letters.svg", [panel], 1)


def kinds():
    panels = []
    for caption, values in (("A 20, B 12", {"A": 20, "B": 12}), ("A 20, B 0", {"A": 20, "B": 0}),
                            ("A 0, B 12", {"A": 0, "B": 12}), ("A 20, B 12; D 12", {"A": 20, "B": 12, "D": 12}),
                            ("A 20, B 12; C 16", {"A": 20, "B": 12, "C": 16}), ("all 0", {"A": 0, "B": 0})):
        part = run(*PLATE, *TO_TOP, *fields(**values))
        panel = Panel((35, 28, 85, 76), 190, caption)
        panel.part(part)
        panel.leads(part)
        panel.travel(part, 1, 0.63, element=2)
        panels.append(panel)
    write(folder + "/lead-kinds.svg", panels, 3)


def sides():
    plate = ["R-02", "--param", "A=70", "--param", "B=110", "--param", "R=12", "--param", "C=35", "--param", "D=55",
             "--param", "Di=40", *fields(step=1, A=8, B=5), "--key", "CopyLeads"]
    panels = []
    for caption, keys in (("as developed", []),
                          ("both turned", ["--key", "PrfPathChange", *fields(profile=1), "--key", "PrfPathChange"])):
        part = run(*plate, *fields(profile=2), *keys)
        panel = Panel((-17, -10, 119, 80), 320, caption)
        panel.part(part)
        panel.leads(part)
        panel.travel(part, 1, 0.45)
        for element in (0, 2, 4, 6) if not keys else (1, 3, 5, 7):
            panel.travel(part, 2, 0.55, element=element)
        panels.append(panel)
    write(folder + "/lead-sides.svg", panels, 2)


def corners():
    panels = []
    for caption, step, wrong in (("Move Step 10: on the corner", 10, (2,)), ("Move Step 1: square, in the scrap", 1, ())):
        part = run("BRACKET.dxf", *fields(step=step, A=5, B=3), "--key", "CopyLeads")
        panel = Panel((-14, 12, 54, 62), 320, caption)
        panel.part(part)
        panel.leads(part, (2,), wrong)
        for element in range(4):
            panel.travel(part, 2, 0.7, element=element)
        panels.append(panel)
    write(folder + "/lead-corner.svg", panels, 2)


def moves():
    plate = ["R-03", "--param", "A=50", "--param", "B=70", "--param", "X=12", "--param", "Y=12"]
    start = fields(step=4, A=7, B=4)
    panels = []
    for caption, keys in (("new: 10 along", []), ("MoveLeadPlus", ["MoveLeadPlus"]),
                          ("MoveLeadMinus, twice", ["MoveLeadMinus"] * 2),
                          ("MoveLeadMinus, three times", ["MoveLeadMinus"] * 3),
                          ("MoveLeadNextElem", ["MoveLeadNextElem"]),
                          ("MoveLeadNextElem, step 0.5", [*fields(step=0.5), "MoveLeadNextElem"])):
        words = [w for key in keys for w in (["--key", key] if key.startswith("Move") and "=" not in key else [key])]
        part = run(*plate, *start, *words)
        panel = Panel((-16, -8, 74, 64), 200, caption)
        panel.part(part)
        panel.leads(part)
        panel.travel(part, 1, 0.95, element=0)
        panels.append(panel)
    write(folder + "/lead-move.svg", panels, 3)


def turns():
    plate = ["R-10", "--param", "A=60", "--param", "B=80", "--param", "C=22", "--param", "D=25", "--param", "Di=22",
             "--param", "X=25", "--param", "Y=18", *fields(step=1, A=6, B=4), "--key", "CopyLeads"]
    panels = []
    for caption, values in (("as drawn", {}), ("Angle 90", {"angle": 90}), ("Mirror 1", {"mirror": 1}),
                            ("Mirror 2", {"mirror": 2}), ("Mirror 3", {"mirror": 3}), ("Scale 0.5", {"scale": 0.5})):
        part = run(*plate, *fields(**values))
        panel = Panel((-14, -14, 94, 92), 200, caption)
        panel.part(part)
        panel.leads(part)
        panel.travel(part, 2, 0.3)
        panel.cross(0, 0, RAPID, 7)
        panels.append(panel)
    write(folder + "/lead-turn.svg", panels, 3)


def open_cuts():
    panels = []
    for caption, values in (("a new part: no leads", {}), ("A 9", {"A": 9}), ("A 9, C 6", {"A": 9, "C": 6})):
        part = run("SLIT.dxf", *fields(profile=1), *fields(**values))
        panel = Panel((8, 12, 82, 62), 200, caption)
        panel.part(part)
        panel.leads(part, (1,))
        panel.travel(part, 1, 0.5, element=0)
        panel.travel(part, 1, 0.5, element=1)
        panels.append(panel)
    write(folder + "/lead-open.svg", panels, 3)


def zero():
    part = run(*PLATE, *TO_TOP, *fields(A=20, B=12))
    panel = Panel((26, 20, 98, 80), 420)
    panel.part(part)
    panel.leads(part)
    panel.travel(part, 1, 0.5, element=2)
    places = ((49, 72, "first press"), (49, 62, "10 on"), (49, 52, "20 on"))
    for x, y, words in places:
        panel.cross(x, y, RAPID, 7)
        panel.text(x, y, words, RAPID, anchor="start", dx=12, dy=5)
    write(folder + "/lead-zero.svg", [panel], 1)


letters()
kinds()
sides()
corners()
moves()
turns()
open_cuts()
zero()
