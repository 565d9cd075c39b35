#!/usr/bin/python3
"""Writes the drawings of tests/data/dxf with a writer that isn't ours (Debian package python3-ezdxf, 0.18).

One sampler in every version, ASCII and binary; the cases in tests/import/DxfFilesTest.cpp hold its values.
"""
import math
import os

import ezdxf

ezdxf.options.write_fixed_meta_data_for_testing = True
FOLDER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "dxf")


def add_blocks(doc):
    plate = doc.blocks.new("PLATE")
    plate.add_circle((0, 0), 2)
    plate.add_arc((10, 0), 5, 0, 90)
    plate.add_line((0, 0), (10, 0))
    nest = doc.blocks.new("NEST")
    nest.add_blockref("PLATE", (20, 0), dxfattribs={"rotation": 90})


def add_polyline(space, version):
    points = [(0, 100, 0), (10, 100, 1), (10, 110, 0), (0, 110, -0.5)]
    if version == "R12":
        space.add_polyline2d(points, format="xyb", close=True)
    else:
        space.add_lwpolyline(points, format="xyb", close=True)


def add_inserts(space):
    space.add_blockref("PLATE", (200, 0), dxfattribs={"xscale": -1})
    space.add_blockref("NEST", (300, 0), dxfattribs={"xscale": 2, "yscale": 2})
    grid = {"row_count": 2, "column_count": 3, "row_spacing": 40, "column_spacing": 30}
    space.add_blockref("PLATE", (400, 0), dxfattribs=grid)


def add_curves(space):
    space.add_ellipse((500, 500), major_axis=(30, 0), ratio=0.5)
    space.add_ellipse((600, 600), major_axis=(10, 0), ratio=1.0, start_param=0, end_param=math.pi / 2)
    space.add_open_spline([(0, 200), (10, 220), (20, 180), (30, 200)])
    closed = space.add_spline()
    closed.set_closed([(0, 400, 0), (20, 400, 0), (20, 420, 0), (0, 420, 0)], degree=3)
    space.add_rational_spline([(10, 300), (10, 310), (0, 310)], [1, math.sqrt(0.5), 1], degree=2)
    space.add_spline(fit_points=[(100, 200), (110, 210), (120, 200), (130, 205)])


def add_noise(doc, space, version):
    space.add_text("A text", dxfattribs={"height": 2.5})
    if version == "R12":
        return
    space.add_mtext("Some text")
    hatch = space.add_hatch()
    hatch.paths.add_polyline_path([(0, 0), (9, 0), (9, 9)], is_closed=True)
    space.add_linear_dim(base=(0, -20), p1=(0, 0), p2=(100, 0)).render()
    doc.layout("Layout1").add_line((0, 0), (77, 77))


def sampler(version):
    doc = ezdxf.new(version)
    add_blocks(doc)
    space = doc.modelspace()
    space.add_line((0, 0), (100, 0))
    space.add_arc((100, 10), 10, 270, 0)
    space.add_circle((50, 50), 20)
    space.add_point((5, 6))
    add_polyline(space, version)
    add_inserts(space)
    if version != "R12":
        add_curves(space)
    add_noise(doc, space, version)
    return doc


def main():
    os.makedirs(FOLDER, exist_ok=True)
    for version in ("R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"):
        doc = sampler(version)
        doc.saveas(os.path.join(FOLDER, f"sampler_{version}.dxf"))
        if version in ("R12", "R2000", "R2018"):
            doc.saveas(os.path.join(FOLDER, f"sampler_{version}_binary.dxf"), fmt="bin")


if __name__ == "__main__":
    main()
