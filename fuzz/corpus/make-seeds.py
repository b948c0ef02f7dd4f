#!/usr/bin/env python3
"""Writes the seed corpus of each fuzz target into the directory beside this script.

The seeds are small valid inputs, one or two per kind of record or entry point, so that the
fuzzer starts from inputs that reach deep into the code. Run it again after changing the input
layout of a target; the files it writes are committed.
"""
import math
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
NAN = float("nan")
INF = float("inf")


def doubles(*values):
    return b"".join(struct.pack("<d", v) for v in values)


def write(target, name, data):
    os.makedirs(os.path.join(HERE, target), exist_ok=True)
    with open(os.path.join(HERE, target, name), "wb") as f:
        f.write(data)


def stream_seeds():
    ident3 = (1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0)
    rot = (0.0, 1.0, 0.0, -1.0, 0.0, 0.0, 0.0, 0.0, 1.0)
    t = lambda traits: struct.pack("<I", traits)
    write("stream", "identity", b"\x00" + t(0))
    write("stream", "rotation", b"\x00" + t(1) + doubles(*rot))
    write("stream", "scale", b"\x00" + t(2) + doubles(2, 0, 0, 0, 2, 0, 0, 0, 2))
    write("stream", "translation", b"\x00" + t(16) + doubles(1.5, -2.0, 3.25))
    write("stream", "affine", b"\x00" + t(23) + doubles(*rot) + doubles(4, 5, 6))
    write("stream", "projective",
          b"\x00" + t(32) + doubles(*(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, -1, 0, 0, -2, 0)))
    write("stream", "nonfinite", b"\x00" + t(17) + doubles(*ident3) + doubles(NAN, INF, 0))
    write("stream", "sequence", b"\x00" + t(16) + doubles(1, 2, 3) + t(7) + doubles(*ident3) + t(0))
    write("stream", "truncated", b"\x00" + t(23) + doubles(1, 2, 3))
    c, s = math.cos(0.5), math.sin(0.5)
    write("stream", "rotation2", b"\x01" + doubles(c, s, 0.0, 1.0, -1.0, 0.0))
    write("stream", "rotation2-odd", b"\x01" + doubles(NAN, 2.0) + b"\x01\x02")


def xml_seeds():
    decl = '<?xml version="1.0"?>\n'
    records = [
        ("vec3f", '<vec3f x="1" y="-2.5" z="0.1"/>'),
        ("pos3f", '<pos3f x="1e300" y="-0" z="5e-324"/>'),
        ("unitvec3f", '<vec3f x="0" y="0" z="1"/>'),
        ("vec2f", '<vec2f x="inf" y="-inf"/>'),
        ("pos2f", '<pos2f x="nan" y="nan(0x7ff0000000000001)"/>'),
        ("color3f", '<color3f x="0.25" y="0.5" z="1"/>'),
        ("rotation3f", '<rotation><quaternion a="0" b="0" c="0.7071067811865476" '
                       'd="0.7071067811865476"/></rotation>'),
        ("box3f", '<box3f><min><pos3f x="-1" y="-2" z="-3"/></min>'
                  '<max><pos3f x="1" y="2" z="3"/></max></box3f>'),
        ("plane3f", '<plane distance="2"><vec3f x="0" y="0" z="1"/></plane>'),
    ]
    for index, (name, text) in enumerate(records):
        write("xml", name, bytes([index]) + (decl + text + "\n").encode())
    write("xml", "wrong-element", bytes([0]) + (decl + '<pos3f x="1" y="2" z="3"/>').encode())
    write("xml", "missing-value", bytes([7]) + (decl + '<box3f><min><pos3f x="1" y="2"/></min>'
                                                '</box3f>').encode())


def linear_seeds():
    write("linear", "maths", b"\x00" + doubles(1, -3, 2) + struct.pack("<iQQi", 5, 12, 5, 8))
    write("linear", "maths-double-root", b"\x00" + doubles(1, 2, 1))
    write("linear", "matrix2", b"\x01" + doubles(2, 1, 1, 3, 5, 6))
    write("linear", "matrix3", b"\x02" + doubles(2, 1, 0, 1, 3, 1, 0, 1, 4, 7, 8, 9))
    write("linear", "matrix3-singular", b"\x02" + doubles(1, 2, 3, 2, 4, 6, 0, 0, 0))
    write("linear", "matrix4", b"\x03" + doubles(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, -1, 0, 0, -2, 0))
    write("linear", "rotations", b"\x04" + doubles(0, 0, 0.6, 0.8, 1, 0, 0, 0, 1, 0, 0, 0, 1,
                                                   0.75, 1, 0, 0, 1))
    for kind in range(8):
        write("linear", "transform%d" % kind,
              b"\x05" + bytes([kind]) + doubles(*range(1, 17)) + bytes([3]) +
              doubles(2, 0, 0, 0, 2, 0, 0, 0, 2, 1e-6, 1, 2, 3))
    write("linear", "functions", b"\x06" + doubles(1, -2, 0.5, 3, 0.25, -1, 1))


def geometry_seeds():
    ident3 = (1, 0, 0, 0, 1, 0, 0, 0, 1)
    ident4 = (1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)
    # A transform operand: kind 5 (affine), then its twelve doubles.
    affine = bytes([5]) + doubles(0, 1, 0, -1, 0, 0, 0, 0, 1, 1, 2, 3)
    box = doubles(-1, -2, -3, 1, 2, 3)
    write("geometry", "boxes", b"\x00" + box + doubles(*ident3) + doubles(*ident3, 1, 1, 1) +
          doubles(*ident4) + affine + box + doubles(4, 5, 6) + doubles(0, 0, 1, 1) +
          doubles(2, 0, 0, 2, 1, 1))
    plane = doubles(0, 0, 1, 2)
    write("geometry", "planes", b"\x01" + plane + doubles(*ident3) + doubles(*ident3) +
          doubles(*ident3, 1, 1, 1) + doubles(*ident4) + affine + doubles(1, 0, 0, 1) +
          doubles(0, 0, 0, 1, 0, 0, 0, 1, 0, 0.2, 0.2, 0, 0.3, 0.3, 5) + box +
          doubles(0, 1, 3, 1, 0, 0, 1, 0, 0))
    write("geometry", "lines", b"\x02" + doubles(0, 0, -1, 0, 0, 1, 0, 0, 1) +
          doubles(*ident3) + doubles(*ident3, 0, 0, 0) + doubles(*ident4) + affine + plane +
          doubles(1, 0, 0, 0, 1, 0, 3, 3, 3))
    frustum = b"\x00" + doubles(-1, 1, -1, 1, 1, 100)
    write("geometry", "frustum", b"\x03" + frustum + doubles(1, 1, 1, 0.5, 0.5, 10) +
          doubles(*ident3) + doubles(*ident3) + doubles(*ident3, 1, 1, 1) + affine)
    write("geometry", "frustum-ortho", b"\x03\x05" + doubles(-1, 1, -1, 1, 1, 100) +
          doubles(0.25, 0.75, 0.25, 0.75))
    # Pick from the frustum, no transform; context: no back-face culling, all planes, options
    # position, distance, snap to vertices and edges; a triangle straddling the volume.
    context = struct.pack("<iii", 0, 0x3F, 0x377) + doubles(0)
    triangle = doubles(0, 0, -5, 0.5, 0.5, -5, 3, 0, -5)
    write("geometry", "pick-frustum", b"\x04\x31" + frustum + context + triangle + box)
    write("geometry", "pick-centre-line", b"\x04\x33" + frustum + affine +
          struct.pack("<iii", 1, 0x3F, 0x6300) + doubles(0) + triangle + box)
    planes = bytes([6]) + b"".join(doubles(*n, -1) for n in
                                   ((1, 0, 0), (-1, 0, 0), (0, 1, 0), (0, -1, 0), (0, 0, -1),
                                    (0, 0, 1)))
    write("geometry", "pick-planes", b"\x04\x30" + planes + context + triangle + box)
    write("geometry", "newell", b"\x05\x04" + doubles(0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0))


def sweep_seeds():
    write("sweep", "crossing", b"\x00" + doubles(0, 0, 2, 2, 0, 2, 2, 0))
    write("sweep", "shared-end", b"\x00" + doubles(0, 0, 1, 1, 1, 1, 2, 0, 1, 1, 1, 3))
    write("sweep", "vertical", b"\x00" + doubles(1, -1, 1, 1, 0, 0, 2, 0, 1, 0.5, 1, 0.5))
    write("sweep", "collinear", b"\x00" + doubles(0, 0, 2, 0, 1, 0, 3, 0, -1e9, 3e9, 1e9, -3e9))
    write("sweep", "resabs", b"\x80" + doubles(1e-3) + doubles(0.0005, 0, 0.0015, 1, 0, 1, 1, 0))


if __name__ == "__main__":
    stream_seeds()
    xml_seeds()
    linear_seeds()
    sweep_seeds()
    geometry_seeds()
