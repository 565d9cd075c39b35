#!/usr/bin/env python3
"""Draws the sample drawings of station/DXF.

Needs ezdxf (Debian: python3-ezdxf). The drawings are kept in the repository, so this runs only when one changes:
    /usr/bin/python3 tests/data/make_samples.py
Millimetres throughout. tests/station/SampleDrawingsTest.cpp holds the numbers that follow from these designs.
"""
import math
import os
import pathlib
import random
import sys

import ezdxf
from ezdxf.math import Vec3

OUT = pathlib.Path(__file__).resolve().parents[2] / "station" / "DXF"
QUARTER = math.tan(math.pi / 8)  # bulge of a quarter circle
HALF = 1.0  # bulge of a half circle


def bracket():
    """L-shaped bracket 140 x 90: loose lines and arcs in mixed order and direction, away from the drawing's zero,
    two marks for the bending line."""
    doc = ezdxf.new("R12")
    ox, oy = 200.0, 100.0
    lines = [
        ((10, 0), (130, 0)), ((140, 10), (140, 30)), ((130, 40), (65, 40)),
        ((50, 55), (50, 80)), ((40, 90), (10, 90)), ((0, 80), (0, 10)),
        # square window
        ((15, 25), (35, 25)), ((35, 25), (35, 45)), ((35, 45), (15, 45)), ((15, 45), (15, 25)),
        # slot
        ((70, 14.5), (90, 14.5)), ((90, 25.5), (70, 25.5)),
    ]
    arcs = [  # centre, radius, from, to
        ((130, 10), 10, 270, 0), ((130, 30), 10, 0, 90), ((65, 55), 15, 180, 270),
        ((40, 80), 10, 0, 90), ((10, 80), 10, 90, 180), ((10, 10), 10, 180, 270),
        ((70, 20), 5.5, 90, 270), ((90, 20), 5.5, 270, 90),
    ]
    circles = [((120, 20), 4.5), ((25, 75), 4.5)]
    marks = [(55, 10), (55, 30)]

    chance = random.Random(4)
    jobs = []
    for a, b in lines:
        if chance.random() < 0.5:
            a, b = b, a
        jobs.append(("line", a, b))
    jobs += [("arc", *arc) for arc in arcs] + [("circle", *circle) for circle in circles]
    jobs += [("mark", mark) for mark in marks]
    chance.shuffle(jobs)

    space = doc.modelspace()
    at = lambda p: (p[0] + ox, p[1] + oy)
    for job in jobs:
        if job[0] == "line":
            space.add_line(at(job[1]), at(job[2]))
        elif job[0] == "arc":
            space.add_arc(at(job[1]), job[2], job[3], job[4])
        elif job[0] == "circle":
            space.add_circle(at(job[1]), job[2])
        else:
            space.add_point(at(job[1]))
    space.add_text("BRACKET  t = 4", dxfattribs={"height": 5, "insert": at((0, -15))})
    return doc


def flange():
    """Round flange of 160: a bore with a keyway as one bulged polyline, eight bolt holes as block inserts."""
    doc = ezdxf.new("R12")
    bolt = doc.blocks.new("BOLT")
    bolt.add_circle((60, 0), 5.5)
    space = doc.modelspace()
    space.add_circle((0, 0), 80)
    for turn in range(8):
        space.add_blockref("BOLT", (0, 0), dxfattribs={"rotation": 22.5 + 45.0 * turn})
    y0 = math.sqrt(30.0**2 - 4.0**2)
    sweep = 2 * math.pi - 2 * math.asin(4.0 / 30.0)
    space.add_polyline2d(
        [(-4, y0, math.tan(sweep / 4)), (4, y0, 0), (4, 33.3, 0), (-4, 33.3, 0)], format="xyb", close=True)
    return doc


def gasket():
    """Gasket 220 x 120: waist drawn as splines, bores as rational spline and circle, an ellipse, two water passages
    as closed splines, one by fit points and one by control points."""
    doc = ezdxf.new("R2007")
    space = doc.modelspace()

    # outline, from the lower left corner on
    space.add_line((20, 0), (80, 0))
    space.add_open_spline([(80, 0), (95, 0), (95, 12), (110, 12)], degree=3)
    space.add_open_spline([(110, 12), (125, 12), (125, 0), (140, 0)], degree=3)
    space.add_line((140, 0), (200, 0))
    space.add_arc((200, 20), 20, 270, 0)
    space.add_line((220, 20), (220, 100))
    space.add_arc((200, 100), 20, 0, 90)
    space.add_line((200, 120), (140, 120))
    waist = space.add_spline(degree=3)
    waist.control_points = [(140, 120), (125, 120), (125, 108), (110, 108), (95, 108), (95, 120), (80, 120)]
    waist.knots = [0, 0, 0, 0, 1, 1, 1, 2, 2, 2, 2]  # a triple knot in the middle
    space.add_line((80, 120), (20, 120))
    space.add_arc((20, 100), 20, 90, 180)
    space.add_line((0, 100), (0, 20))
    space.add_arc((20, 20), 20, 180, 270)

    # bores of radius 35: an exact circle as a rational spline of degree 2, and a circle
    w = math.sqrt(0.5)
    corners = [(1, 0), (1, 1), (0, 1), (-1, 1), (-1, 0), (-1, -1), (0, -1), (1, -1), (1, 0)]
    bore = space.add_spline(degree=2)
    bore.control_points = [(60 + 35 * x, 60 + 35 * y) for x, y in corners]
    bore.knots = [0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4]
    bore.weights = [1, w, 1, w, 1, w, 1, w, 1]
    space.add_circle((160, 60), 35)

    space.add_ellipse((110, 60), major_axis=(0, 20), ratio=0.4)
    for x in (20, 200):
        for y in (20, 100):
            space.add_circle((x, y), 5)

    turn = [2 * math.pi * k / 8 for k in range(8)]
    fit = [Vec3(110 + 8 * math.cos(t), 26 + 5 * math.sin(t)) for t in turn]
    space.add_spline(fit + fit[:1])
    passage = space.add_spline(degree=3)
    passage.set_closed([Vec3(110 + 9 * math.cos(t), 94 + 6 * math.sin(t)) for t in turn], degree=3)
    return doc


def panel():
    """Control panel 480 x 320: vents as an array of slots, connectors mirrored and turned, buttons, a display window,
    an ellipse, and a round hole that its insert stretches to an ellipse."""
    doc = ezdxf.new("R2000")
    space = doc.modelspace()
    r = 8.0
    w, h = 480.0, 320.0
    space.add_lwpolyline(
        [(r, 0, 0), (w - r, 0, QUARTER), (w, r, 0), (w, h - r, QUARTER), (w - r, h, 0), (r, h, QUARTER),
         (0, h - r, 0), (0, r, QUARTER)], format="xyb", close=True)
    for x in (15, w - 15):
        for y in (15, h - 15):
            space.add_circle((x, y), 3)

    vent = doc.blocks.new("VENT")
    vent.add_lwpolyline([(-17, -3, 0), (17, -3, HALF), (17, 3, 0), (-17, 3, HALF)], format="xyb", close=True)
    space.add_blockref("VENT", (60, 50)).grid(size=(10, 4), spacing=(12, 50))

    connector = doc.blocks.new("CONNECTOR")
    connector.add_lwpolyline([(-9, -5, 0), (6, -5, HALF), (6, 5, 0), (-9, 5, 0)], format="xyb", close=True)
    connector.add_circle((-14, 0), 1.6)
    connector.add_circle((16, 0), 1.6)
    space.add_blockref("CONNECTOR", (240, 240))
    space.add_blockref("CONNECTOR", (300, 240), dxfattribs={"xscale": -1})
    space.add_blockref("CONNECTOR", (360, 240), dxfattribs={"rotation": 90})
    space.add_blockref("CONNECTOR", (420, 240), dxfattribs={"yscale": -1, "rotation": 180})

    button = doc.blocks.new("BUTTON")
    button.add_circle((0, 0), 8)
    space.add_blockref("BUTTON", (280, 60)).grid(size=(2, 5), spacing=(40, 35))

    space.add_lwpolyline([(60, 200), (180, 200), (180, 270), (60, 270)], close=True)
    space.add_ellipse((390, 170), major_axis=(25, 0), ratio=0.4)

    speaker = doc.blocks.new("SPEAKER")
    speaker.add_circle((0, 0), 10)
    space.add_blockref("SPEAKER", (290, 170), dxfattribs={"xscale": 2})
    space.add_mtext("POWER", dxfattribs={"char_height": 6, "insert": (200, 20)})
    return doc


def main():
    ezdxf.options.write_fixed_meta_data_for_testing = True
    OUT.mkdir(parents=True, exist_ok=True)
    for draw in (bracket, flange, gasket, panel):
        doc = draw()
        path = OUT / (draw.__name__.upper() + ".dxf")
        doc.saveas(path)
        print(path.name, path.stat().st_size, "bytes,", len(doc.modelspace()), "entities")


if __name__ == "__main__":
    if os.environ.get("PYTHONHASHSEED") != "0":  # the writer walks sets: the same seed gives the same file each time
        os.execve(sys.executable, [sys.executable, *sys.argv], {**os.environ, "PYTHONHASHSEED": "0"})
    main()
